// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DescribedError.h"

#include <QString>
#include <QStringList>
#include <QUrl>

namespace tonearm {

/// Why a file's tags can't be read or written.
class AudioFileTagError : public DescribedError
{
public:
    enum class Kind {
        malformedOutput,
        fileMissing,
        fileChangedOnDisk,
        notWritable,
        noAttachedPicture,
        wouldLoseTags
    };

    /// `text` says what is wrong with what ffprobe or ffmpeg made.
    static AudioFileTagError malformedOutput(QString text);
    static AudioFileTagError fileMissing(QUrl url);
    static AudioFileTagError fileChangedOnDisk(QUrl url);
    static AudioFileTagError notWritable(QUrl url);
    static AudioFileTagError noAttachedPicture(QUrl url);
    static AudioFileTagError wouldLoseTags(QUrl url, QStringList names);

    QString description() const override;
    std::optional<QString> recoverySuggestion() const override;

    Kind kind;
    /// The file; empty for malformedOutput.
    QUrl url;
    /// For malformedOutput only.
    QString text;
    /// For wouldLoseTags only.
    QStringList names;

    bool operator==(const AudioFileTagError &other) const;

private:
    AudioFileTagError(Kind errorKind, QUrl file, QString reason, QStringList tagNames);
};

} // namespace tonearm
