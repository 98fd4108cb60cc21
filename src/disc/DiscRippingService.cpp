// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/DiscRippingService.h"

#include "disc/RipFileName.h"
#include "disc/TrackCopy.h"

#include <QFile>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// A prefix has so many frames more than its seconds ask for.
constexpr qint64 furtherFrames = 1;

// A drive that is well takes sixteen frames at a time.
constexpr qint64 firstChunkSize = 16 * discFrameBytes;

qint64 framesFor(double seconds)
{
    // Longer than any disc, so that the number fits.
    constexpr double maximumSeconds = 1e6;
    const double sensible = std::isnan(seconds) ? 0 : std::clamp(seconds, 0.0, maximumSeconds);
    return static_cast<qint64>(std::ceil(sensible * discFramesPerSecond)) + furtherFrames;
}

} // namespace

DiscRippingService::DiscRippingService(QString base, std::shared_ptr<const RipFiles> files, RipWaits waits)
    : m_files(std::move(files))
    , m_waits(std::move(waits))
    , m_folders(std::move(base))
    , m_workingChunkSize(firstChunkSize)
    , m_executor(u"ripping"_s)
{
}

QCoro::Task<RippedTrack> DiscRippingService::rip(DiscTrack track, DiscInfo, Progress onProgress,
                                                 std::stop_token stop)
{
    const auto operation = [this, track, onProgress, stop] { return ripInTurn(track, onProgress, stop); };
    co_return co_await m_executor.run(operation);
}

QCoro::Task<bool> DiscRippingService::verify(DiscTrack track, DiscInfo, QString checksum, Progress onProgress,
                                             std::stop_token stop)
{
    const auto operation = [this, track, checksum, onProgress, stop] {
        return verifyInTurn(track, checksum, onProgress, stop);
    };
    co_return co_await m_executor.run(operation);
}

QString DiscRippingService::readerName() const
{
    return u"CDDA filesystem"_s;
}

QCoro::Task<QUrl> DiscRippingService::prefix(DiscTrack track, double seconds, std::stop_token stop)
{
    const auto operation = [this, track, seconds, stop] {
        return prefixInTurn(track, framesFor(seconds), stop);
    };
    co_return co_await m_executor.run(operation);
}

double DiscRippingService::longestPrefix(const DiscTrack &track)
{
    // Half a frame less keeps clear of the rounding.
    constexpr double clearance = 0.5;
    const double frames = static_cast<double>(track.frameCount - furtherFrames) - clearance;
    return std::max(0.0, frames / discFramesPerSecond);
}

QCoro::Task<> DiscRippingService::discardPrefixes(std::stop_token stop)
{
    const auto operation = [this, stop] { return discardInTurn(stop); };
    co_await m_executor.run(operation);
}

QString DiscRippingService::newFile(const QString &use, qint64 trackNumber)
{
    return m_folders.folder(TemporaryFolders::Purpose::rips) + u'/' +
           ripFileName(use, trackNumber, u"aiff"_s);
}

QCoro::Task<RippedTrack> DiscRippingService::ripInTurn(DiscTrack track, Progress onProgress,
                                                       std::stop_token stop)
{
    Turn turn(m_turns);
    co_await turn.take(stop);
    const QString file = newFile(u"track"_s, track.number);
    const CopyOrder order = {.track = track, .destination = file, .onProgress = onProgress};
    const QString checksum = co_await copyTrack(order, m_files, m_waits, m_workingChunkSize, turn, stop);
    co_return RippedTrack{
        .url = QUrl::fromLocalFile(file), .checksum = checksum, .assurance = RipVerification::unverified};
}

QCoro::Task<bool> DiscRippingService::verifyInTurn(DiscTrack track, QString checksum, Progress onProgress,
                                                   std::stop_token stop)
{
    Turn turn(m_turns);
    co_await turn.take(stop);
    const QString file = newFile(u"verify"_s, track.number);
    const CopyOrder order = {.track = track, .destination = file, .onProgress = onProgress};
    const QString second = co_await copyTrack(order, m_files, m_waits, m_workingChunkSize, turn, stop);
    QFile::remove(file);
    co_return second == checksum;
}

QCoro::Task<QUrl> DiscRippingService::prefixInTurn(DiscTrack track, qint64 frames, std::stop_token stop)
{
    Turn turn(m_turns);
    co_await turn.take(stop);
    const PrefixKey key = {.trackNumber = track.number, .frames = frames};
    const auto cached = m_prefixCache.find(key);
    if (cached != m_prefixCache.end() && QFile::exists(cached->second.toLocalFile()))
        co_return cached->second;
    const QString file = newFile(u"preview"_s, track.number);
    const CopyOrder order = {.track = track, .destination = file, .limit = frames * discFrameBytes};
    co_await copyTrack(order, m_files, m_waits, m_workingChunkSize, turn, stop);
    const QUrl url = QUrl::fromLocalFile(file);
    m_prefixCache[key] = url;
    co_return url;
}

QCoro::Task<> DiscRippingService::discardInTurn(std::stop_token stop)
{
    Turn turn(m_turns);
    co_await turn.take(stop);
    for (const auto &[key, url] : m_prefixCache)
        QFile::remove(url.toLocalFile());
    m_prefixCache.clear();
}

} // namespace tonearm
