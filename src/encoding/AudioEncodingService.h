// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "encoding/AudioEncodingError.h"
#include "encoding/FFmpegArguments.h"
#include "encoding/ProgressReporter.h"
#include "tools/ProcessRunner.h"
#include "tools/ToolLocation.h"
#include "workflow/records/AudioMetadata.h"
#include "workflow/records/ChapterInfo.h"

#include <QCoroTask>

#include <QList>
#include <QStringList>
#include <QUrl>

#include <stop_token>

namespace tonearm {

/// Turns tracks into FLAC files: what has to hold beforehand, where the files go, and one run of ffmpeg
/// for each. The functions that say so block on the file system and don't belong on the main thread.
class AudioEncodingService
{
public:
    explicit AudioEncodingService(ToolLocation tools, ProcessRunner processRunner = {});

    /// Throws AudioEncodingError for the first thing that is missing. Blocks.
    void validate(const QList<ChapterInfo> &chapters, const AudioMetadata &metadata) const;

    /// Makes the folder if it isn't there. Throws AudioEncodingError if it can't be used. Blocks.
    void prepareOutputDirectory(const QUrl &directory) const;

    /// The folder for the files of a job: `base`, or with `organize` a folder for the artist and in it
    /// one for the album.
    QUrl outputDirectory(const QUrl &base, const AudioMetadata &metadata, bool organize) const;

    /// The name of a track's file; `number` is its position in the job, from 1.
    QString outputFilename(const QString &title, qint64 number) const;

    /// The files that a job with these chapters would overwrite, in the chapters' order. Blocks.
    QList<QUrl> existingOutputs(const QList<ChapterInfo> &chapters, const QUrl &directory) const;

    /// The arguments for ffmpeg.
    QStringList arguments(const TrackEncoding &track) const;

    /// Encodes one track, replacing an existing file of the output's name. `onFractionComplete` is
    /// called on a background thread, and no more once the task has ended.
    ///
    /// Throws FFmpegNotFoundError, what ProcessRunner::run throws, CancellationError, and AudioEncodingError
    /// for a track that ffmpeg broke off with a complaint, although it counts that as success. A run that
    /// fails or is cancelled leaves no output file; one that never began leaves the file that was there.
    /// The caller's thread needs an event loop and isn't blocked; the service may go meanwhile.
    QCoro::Task<> encode(TrackEncoding track, ProgressReporter::Callback onFractionComplete,
                         std::stop_token stop) const;

private:
    ToolLocation m_tools;
    ProcessRunner m_processRunner;
};

} // namespace tonearm
