// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/TrackCopy.h"

#include "disc/ChunkReading.h"
#include "disc/DiscError.h"
#include "disc/TrackSource.h"
#include "support/Cancellation.h"
#include "support/Digest.h"
#include "support/PathText.h"

#include <QFile>

#include <algorithm>
#include <exception>
#include <limits>
#include <utility>

namespace tonearm {

namespace {

class TrackCopy
{
public:
    TrackCopy(CopyOrder order, std::shared_ptr<const RipFiles> files, RipWaits waits, qint64 &workingSize,
              Turn &turn)
        : m_order(std::move(order))
        , m_files(std::move(files))
        , m_waits(std::move(waits))
        , m_source(m_files, plainPath(m_order.track.audioFileURL), m_waits.afterStop)
        , m_reading(m_source, m_order.track.number, workingSize, turn, m_waits)
        , m_chunkSize(workingSize)
    {
    }

    QCoro::Task<QString> run(std::stop_token stop);

private:
    QCoro::Task<> openBoth(std::stop_token stop);
    QCoro::Task<> openSource(std::stop_token stop);
    void openDestination();
    QCoro::Task<> transfer(std::stop_token stop);
    QCoro::Task<> closeBoth(std::stop_token stop);

    std::optional<qint64> target() const { return m_order.limit ? m_order.limit : m_size; }

    bool hasAll() const { return target() && m_count >= *target(); }

    ReadingOrder nextReadings() const;
    void keep(const QByteArray &bytes);
    void reportCount() const;
    void report(double fraction) const;
    std::exception_ptr worded(const std::exception_ptr &failure) const;

    const CopyOrder m_order;
    const std::shared_ptr<const RipFiles> m_files;
    const RipWaits m_waits;
    TrackSource m_source;
    ChunkReading m_reading;
    const qint64 m_chunkSize;
    std::optional<qint64> m_size;
    std::unique_ptr<WritableFile> m_destination;
    Digest m_digest{Digest::Algorithm::sha256};
    qint64 m_count = 0;
};

QCoro::Task<QString> TrackCopy::run(std::stop_token stop)
{
    std::exception_ptr failure;
    try {
        co_await openBoth(stop);
        co_await transfer(stop);
    } catch (...) {
        failure = std::current_exception();
    }
    const bool wasMade = m_destination != nullptr;
    co_await closeBoth(stop);
    if (failure && wasMade)
        QFile::remove(m_order.destination);
    if (failure)
        std::rethrow_exception(worded(failure));
    co_return QString::fromLatin1(m_digest.finish().toHex());
}

QCoro::Task<> TrackCopy::openBoth(std::stop_token stop)
{
    const bool isReadable = co_await m_source.isReadable(stop);
    if (!isReadable)
        throw DiscError::trackUnreadable(m_order.track.number);
    m_size = co_await m_source.size(stop);
    co_await openSource(stop);
    openDestination();
}

QCoro::Task<> TrackCopy::openSource(std::stop_token stop)
{
    try {
        co_await m_source.open(stop);
    } catch (const std::exception &) {
        throw DiscError::trackUnreadable(m_order.track.number);
    }
}

void TrackCopy::openDestination()
{
    try {
        m_destination = m_files->create(m_order.destination);
    } catch (const std::exception &) {
        throw DiscError::trackUnreadable(m_order.track.number);
    }
}

QCoro::Task<> TrackCopy::transfer(std::stop_token stop)
{
    while (!hasAll()) {
        throwIfCancelled(stop);
        const QByteArray bytes = co_await m_reading.read(nextReadings(), m_count, stop);
        keep(bytes);
        reportCount();
    }
    // A limit that is no whole number of frames. The checksum keeps what is cut off here.
    if (m_count > *target())
        m_destination->truncate(*target());
    report(1.0);
}

QCoro::Task<> TrackCopy::closeBoth(std::stop_token stop)
{
    m_destination.reset();
    try {
        co_await m_source.close(stop);
    } catch (const CancellationError &) { // NOLINT(bugprone-empty-catch): the drive hangs, and is left behind
    }
}

// As many as are of that size however little each of them gives.
ReadingOrder TrackCopy::nextReadings() const
{
    if (!target())
        return {.size = m_chunkSize, .count = std::numeric_limits<qint64>::max()};
    const qint64 rest = *target() - m_count;
    if (rest >= m_chunkSize)
        return {.size = m_chunkSize, .count = rest / m_chunkSize};
    return {.size = discFrameBytes, .count = (rest - 1) / discFrameBytes + 1};
}

void TrackCopy::keep(const QByteArray &bytes)
{
    m_destination->write(bytes);
    m_digest.add(bytes);
    m_count += bytes.size();
}

void TrackCopy::reportCount() const
{
    // A limit may lie behind the end of the file.
    const qint64 expected =
        m_order.limit && m_size ? std::min(*m_order.limit, *m_size) : target().value_or(0);
    if (expected >= 1)
        report(std::min(static_cast<double>(m_count) / static_cast<double>(expected), 1.0));
}

void TrackCopy::report(double fraction) const
{
    if (m_order.onProgress)
        m_order.onProgress(fraction);
}

std::exception_ptr TrackCopy::worded(const std::exception_ptr &failure) const
{
    try {
        std::rethrow_exception(failure);
    } catch (const CancellationError &) {
        return failure;
    } catch (const DiscError &) {
        return failure;
    } catch (...) {
        return std::make_exception_ptr(
            DiscError::trackReadFailed(m_order.track.number, describe(failure).description));
    }
}

} // namespace

QCoro::Task<QString> copyTrack(CopyOrder order, std::shared_ptr<const RipFiles> files, RipWaits waits,
                               qint64 &workingSize, Turn &turn, std::stop_token stop)
{
    TrackCopy copy(std::move(order), std::move(files), std::move(waits), workingSize, turn);
    co_return co_await copy.run(stop);
}

} // namespace tonearm
