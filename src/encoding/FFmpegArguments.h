// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/records/AudioMetadata.h"
#include "workflow/records/ChapterInfo.h"

#include <QString>
#include <QStringList>
#include <QUrl>

namespace tonearm {

/// One track to encode.
struct TrackEncoding
{
    ChapterInfo chapter = {};
    QUrl source = {};
    QUrl output = {};
    AudioMetadata metadata = {};
    /// The track's position in the job, from 1.
    qint64 number = 0;
    /// The number of tracks in the job.
    qint64 total = 0;
    /// Whether the source is the track. Otherwise the chapter's times are cut out of it.
    bool wholeFile = false;

    /// Of the chapter, in seconds; never negative.
    double duration() const;

    bool operator==(const TrackEncoding &) const = default;
};

/// A time in seconds as ffmpeg is told it, to the microsecond.
QString secondsText(double seconds);

/// The argument list that makes ffmpeg encode the track to FLAC and report its progress on stderr.
QStringList ffmpegArguments(const TrackEncoding &track);

} // namespace tonearm
