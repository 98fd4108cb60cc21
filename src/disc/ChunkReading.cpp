// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/ChunkReading.h"

#include "disc/DiscError.h"
#include "disc/DiscTrack.h"
#include "support/Cancellation.h"

#include <algorithm>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int maximumAttempts = 6;

QString wordsOf(const std::exception_ptr &error)
{
    return describe(error).description;
}

} // namespace

qint64 smallerReadSize(qint64 size)
{
    constexpr qint64 twoFrames = 2 * discFrameBytes;
    return std::max<qint64>(size / twoFrames, 1) * discFrameBytes;
}

ChunkReading::ChunkReading(TrackSource &source, qint64 trackNumber, qint64 &workingSize, Turn &turn,
                           const RipWaits &waits)
    : m_source(source)
    , m_trackNumber(trackNumber)
    , m_workingSize(workingSize)
    , m_turn(turn)
    , m_waits(waits)
{
}

QCoro::Task<QByteArray> ChunkReading::read(ReadingOrder order, qint64 offset, std::stop_token stop)
{
    throwIfCancelled(stop);
    qint64 size = order.size;
    Attempt last = co_await attempt(order, stop);
    for (int attempts = 1; last.bytes.isEmpty(); ++attempts) {
        if (attempts == maximumAttempts) {
            throw DiscError::trackReadFailed(
                m_trackNumber,
                last.failure + u" Gave up after %1 attempts at %2 bytes."_s.arg(attempts).arg(offset));
        }
        throwIfCancelled(stop);
        co_await m_source.close(stop);
        co_await pause(stop);
        size = smallerReadSize(size);
        last = co_await attemptAnew(size, offset, stop);
    }
    m_workingSize = std::min(m_workingSize, size);
    co_return last.bytes;
}

QCoro::Task<ChunkReading::Attempt> ChunkReading::attempt(ReadingOrder order, std::stop_token stop)
{
    if (m_ahead.empty())
        m_ahead = co_await m_source.read(order, stop);
    const Reading reading = std::move(m_ahead.front());
    m_ahead.pop_front();
    const QString failure = reading.failure ? wordsOf(reading.failure) : u"The drive returned no data."_s;
    co_return Attempt{.bytes = reading.bytes, .failure = failure};
}

QCoro::Task<ChunkReading::Attempt> ChunkReading::attemptAnew(qint64 size, qint64 offset, std::stop_token stop)
{
    try {
        co_await m_source.open(stop);
    } catch (const std::exception &) {
        co_return Attempt{.failure = u"The track could not be reopened."_s};
    }
    co_return co_await attemptFrom(offset, size, stop);
}

QCoro::Task<ChunkReading::Attempt> ChunkReading::attemptFrom(qint64 offset, qint64 size, std::stop_token stop)
{
    try {
        co_await m_source.seek(offset, stop);
    } catch (const std::exception &) {
        co_return Attempt{.failure = wordsOf(std::current_exception())};
    }
    co_return co_await attempt({.size = size}, stop);
}

QCoro::Task<> ChunkReading::pause(std::stop_token stop)
{
    m_turn.pass();
    try {
        co_await m_waits.sleep(m_waits.beforeRetry, stop);
    } catch (const CancellationError &) { // NOLINT(bugprone-empty-catch): the next attempt sees the stop
    }
    co_await m_turn.take(stop);
}

} // namespace tonearm
