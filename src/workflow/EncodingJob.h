// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/DiscInfo.h"
#include "disc/TrackRipping.h"
#include "encoding/EncodingLog.h"
#include "encoding/FFmpegArguments.h"
#include "workflow/DiscJobProgress.h"
#include "workflow/records/AudioMetadata.h"
#include "workflow/records/ChapterInfo.h"

#include <QList>
#include <QUrl>

#include <memory>
#include <optional>

namespace tonearm {

/// A job's working values, settled when it begins: what the user edits meanwhile doesn't reach it.
struct EncodingJob
{
    /// The file, unless the source is a disc.
    QUrl source;
    std::optional<DiscInfo> disc;
    /// What reads the disc's tracks. Outlives the job.
    TrackRipping *reader = nullptr;
    bool isSecure = false;
    bool isVerifying = false;
    QList<ChapterInfo> chapters;
    AudioMetadata metadata;
    QUrl destination;
    /// For a file it has one entry for each chapter, finished or not; for a disc those of the finished
    /// tracks.
    EncodingLog log;
    /// The files finished so far, in order.
    QList<QUrl> outputs;
};

/// One track of a disc on its way through a job.
struct DiscTrackJob
{
    std::shared_ptr<EncodingJob> job;
    /// The track's place in the job.
    qsizetype index = 0;
    DiscTrack track;
    /// The job's reader, unless that has failed on this track.
    TrackRipping *reader = nullptr;
    RippedTrack ripped;
    /// What the log will say of it.
    EncodingLog::Entry entry;

    /// "3 of 12".
    QString positionText() const;
    DiscJobProgress progress() const;
};

/// The encoding of one chapter of a job into a file of that name, cut from the job's source.
TrackEncoding trackOf(const EncodingJob &job, qsizetype index, const QString &filename);

/// The track that a chapter of a disc stands for. Throws DiscError if the disc hasn't got it.
DiscTrack trackOfChapter(const DiscInfo &disc, const ChapterInfo &chapter);

} // namespace tonearm
