// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/ParanoiaRead.h"
#include "disc/TrackRipping.h"
#include "support/SerialExecutor.h"
#include "support/TemporaryFolders.h"
#include "tools/ProcessRunner.h"
#include "tools/ToolLocation.h"

#include <QCoroTask>

#include <QString>

#include <optional>
#include <stop_token>

namespace tonearm {

/// Reads tracks with cd-paranoia, past the volume, from the drive's device. The service has to outlive its
/// calls.
///
/// Besides what TrackRipping says, its readings throw CDParanoiaNotFoundError. They take as long as the
/// program does; a stop request ends it. Checksums are those of whole WAV files, and mean nothing to
/// another reader.
class ParanoiaRippingService : public TrackRipping
{
public:
    /// `base` is the system's temporary directory, or a test's own.
    ParanoiaRippingService(ToolLocation tools, QString base, StallTimes times = {},
                           ProcessRunner processRunner = {});

    /// The track is `secure` if the program has read it without a complaint, else `unverified`.
    QCoro::Task<RippedTrack> rip(DiscTrack track, DiscInfo disc, Progress onProgress,
                                 std::stop_token stop) override;

    QCoro::Task<bool> verify(DiscTrack track, DiscInfo disc, QString checksum, Progress onProgress,
                             std::stop_token stop) override;

    QString readerName() const override;

private:
    QCoro::Task<RippedTrack> ripHere(DiscTrack track, DiscInfo disc, Progress onProgress,
                                     std::stop_token stop);
    QCoro::Task<bool> verifyHere(DiscTrack track, DiscInfo disc, QString checksum, Progress onProgress,
                                 std::stop_token stop);

    /// Reads a track to a file and returns the file's checksum.
    QCoro::Task<QString> read(DiscTrack track, DiscInfo disc, QString output, Progress onProgress,
                              std::stop_token stop);

    QString newOutput(const QString &use, const DiscTrack &track);
    ParanoiaPlan plan(const DiscTrack &track, const DiscInfo &disc, const QString &output) const;

    // All of it is touched on the executor only.
    ToolLocation m_tools;
    StallTimes m_times;
    ProcessRunner m_processRunner;
    TemporaryFolders m_folders;
    // What the last finished read complained about.
    std::optional<QString> m_lastReadComplained;
    SerialExecutor m_executor;
};

} // namespace tonearm
