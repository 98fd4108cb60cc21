// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/ChapterExtractionError.h"

#include "support/PathText.h"

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

ChapterExtractionError::ChapterExtractionError(Kind errorKind, QUrl source, QString reason)
    : kind(errorKind)
    , url(std::move(source))
    , text(std::move(reason))
{
}

ChapterExtractionError ChapterExtractionError::unreadableFile(QUrl url)
{
    return {Kind::unreadableFile, std::move(url), {}};
}

ChapterExtractionError ChapterExtractionError::notMatroska(QUrl url)
{
    return {Kind::notMatroska, std::move(url), {}};
}

ChapterExtractionError ChapterExtractionError::noChapters(QUrl url)
{
    return {Kind::noChapters, std::move(url), {}};
}

ChapterExtractionError ChapterExtractionError::malformedOutput(QString text)
{
    return {Kind::malformedOutput, {}, std::move(text)};
}

QString ChapterExtractionError::description() const
{
    const QString quotedName = u'"' + lastPathComponent(url) + u'"';
    switch (kind) {
    case Kind::unreadableFile:
        return quotedName + u" couldn't be opened."_s;
    case Kind::notMatroska:
        return quotedName + u" isn't a Matroska (.mkv) file."_s;
    case Kind::noChapters:
        return quotedName + u" has no chapter markers."_s;
    case Kind::malformedOutput:
        return u"ffprobe returned data that couldn't be read. "_s + text;
    }
    Q_UNREACHABLE();
}

std::optional<QString> ChapterExtractionError::recoverySuggestion() const
{
    switch (kind) {
    case Kind::unreadableFile:
        return u"Check the file still exists and that you have permission to read it."_s;
    case Kind::notMatroska:
        return u"Choose a .mkv file, or remux the video to Matroska first."_s;
    case Kind::noChapters:
        return u"Tonearm splits a file at its chapter markers, so the source needs them. "
               "Re-rip the disc with chapters preserved, or add them with a tool like MKVToolNix."_s;
    case Kind::malformedOutput:
        return u"Check that ffprobe runs correctly in Terminal, then try again."_s;
    }
    Q_UNREACHABLE();
}

bool ChapterExtractionError::operator==(const ChapterExtractionError &other) const
{
    return kind == other.kind && url == other.url && text == other.text;
}

} // namespace tonearm
