// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/RipFiles.h"
#include "disc/RipWaits.h"
#include "disc/TrackRipping.h"
#include "disc/Turn.h"
#include "support/SerialExecutor.h"
#include "support/TemporaryFolders.h"

#include <map>

namespace tonearm {

/// Reads tracks from the files of the disc's volume.
///
/// Calls take turns, and one that waits before it tries a failed reading again lets others in. What it
/// learns of a drive that fails, the service keeps: its readings only ever get smaller. A call that is
/// cancelled ends at once, also while the drive doesn't answer. The service has to outlive its calls.
class DiscRippingService : public TrackRipping
{
public:
    /// `base` is the system's temporary directory, or a test's own.
    explicit DiscRippingService(QString base,
                                std::shared_ptr<const RipFiles> files = std::make_shared<SystemRipFiles>(),
                                RipWaits waits = {});

    QCoro::Task<RippedTrack> rip(DiscTrack track, DiscInfo disc, Progress onProgress,
                                 std::stop_token stop) override;
    QCoro::Task<bool> verify(DiscTrack track, DiscInfo disc, QString checksum, Progress onProgress,
                             std::stop_token stop) override;
    QString readerName() const override;

    /// A temporary file with at least so many seconds of the track's start, for as long as nobody calls
    /// discardPrefixes(). For longestPrefix() at most. Throws as rip() does.
    QCoro::Task<QUrl> prefix(DiscTrack track, double seconds, std::stop_token stop);

    /// The seconds with which all of a track is read as its prefix.
    static double longestPrefix(const DiscTrack &track);

    /// Deletes the files of all prefixes. Throws CancellationError only.
    QCoro::Task<> discardPrefixes(std::stop_token stop);

private:
    struct PrefixKey
    {
        qint64 trackNumber = 0;
        qint64 frames = 0;

        auto operator<=>(const PrefixKey &) const = default;
    };

    // These run on the executor.
    QString newFile(const QString &use, qint64 trackNumber);
    QCoro::Task<RippedTrack> ripInTurn(DiscTrack track, Progress onProgress, std::stop_token stop);
    QCoro::Task<bool> verifyInTurn(DiscTrack track, QString checksum, Progress onProgress,
                                   std::stop_token stop);
    QCoro::Task<QUrl> prefixInTurn(DiscTrack track, qint64 frames, std::stop_token stop);
    QCoro::Task<> discardInTurn(std::stop_token stop);

    const std::shared_ptr<const RipFiles> m_files;
    const RipWaits m_waits;
    // Touched on the executor's thread only.
    TemporaryFolders m_folders;
    qint64 m_workingChunkSize;
    std::map<PrefixKey, QUrl> m_prefixCache;
    Turns m_turns;
    // Waits for what runs on it, and so goes first.
    SerialExecutor m_executor;
};

} // namespace tonearm
