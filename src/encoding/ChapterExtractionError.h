// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DescribedError.h"

#include <QString>
#include <QUrl>

namespace tonearm {

/// Why a file can't serve as a source.
class ChapterExtractionError : public DescribedError
{
public:
    enum class Kind { unreadableFile, notMatroska, noChapters, malformedOutput };

    static ChapterExtractionError unreadableFile(QUrl url);
    static ChapterExtractionError notMatroska(QUrl url);
    static ChapterExtractionError noChapters(QUrl url);
    /// `text` is the decoder's own description of what is wrong with ffprobe's reply.
    static ChapterExtractionError malformedOutput(QString text);

    QString description() const override;
    std::optional<QString> recoverySuggestion() const override;

    Kind kind;
    /// The source; empty for malformedOutput.
    QUrl url;
    /// For malformedOutput only.
    QString text;

    bool operator==(const ChapterExtractionError &other) const;

private:
    ChapterExtractionError(Kind errorKind, QUrl source, QString reason);
};

} // namespace tonearm
