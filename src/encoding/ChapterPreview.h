// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/records/ChapterInfo.h"

#include <QString>
#include <QStringList>
#include <QUrl>

namespace tonearm {

/// How much of a chapter a preview plays.
inline constexpr int chapterPreviewSeconds = 20;

/// The start of a chapter, ready to be played.
struct ChapterPreview
{
    /// The chapter's own id.
    qint64 chapterID = 0;
    /// The WAV file. It stays its maker's: who plays it doesn't delete it.
    QUrl url = {};
    /// In seconds.
    double duration = 0;

    bool operator==(const ChapterPreview &) const = default;
};

/// How long the preview of a chapter is, in seconds: as long as the chapter, `limit` at most.
double previewDuration(const ChapterInfo &chapter, double limit);

/// The argument list that makes ffmpeg cut `duration` seconds from the chapter's start into a WAV file,
/// 16 bits, stereo, 44.1 kHz, so that a player needs to know nothing of the source's codec.
QStringList previewArguments(const ChapterInfo &chapter, const QUrl &source, double duration,
                             const QString &output);

} // namespace tonearm
