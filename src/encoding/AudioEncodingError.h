// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DescribedError.h"

#include <QUrl>

namespace tonearm {

/// Why a job can't start, or why a track didn't become whole.
class AudioEncodingError : public DescribedError
{
public:
    enum class Kind {
        outputDirectoryUnavailable,
        outputDirectoryNotWritable,
        untitledChapters,
        coverArtUnreadable,
        noChapters,
        incompleteTrack
    };

    static AudioEncodingError outputDirectoryUnavailable(QUrl url);
    static AudioEncodingError outputDirectoryNotWritable(QUrl url);
    static AudioEncodingError untitledChapters(qint64 count);
    static AudioEncodingError coverArtUnreadable(QUrl url);
    static AudioEncodingError noChapters();
    /// `complaint` is what ffmpeg said.
    static AudioEncodingError incompleteTrack(double readSeconds, double seconds, QString complaint);

    QString description() const override;
    std::optional<QString> recoverySuggestion() const override;

    Kind kind;
    /// The folder or the image; empty for the kinds without one.
    QUrl url;
    /// For untitledChapters only.
    qint64 count;
    /// For incompleteTrack only: how much of how much was read, and why no more.
    double readSeconds = 0;
    double seconds = 0;
    QString complaint;

    bool operator==(const AudioEncodingError &other) const;

private:
    AudioEncodingError(Kind errorKind, QUrl place, qint64 number);
};

} // namespace tonearm
