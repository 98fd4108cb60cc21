// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/AudioFileTagError.h"

#include "support/PathText.h"

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QString lossText(const QString &quotedName, QStringList names)
{
    names.sort();
    return quotedName + u" would have discarded "_s + (names.size() == 1 ? u"this tag"_s : u"these tags"_s) +
           u", so it was left unchanged:\n\n"_s + names.join(u'\n');
}

} // namespace

AudioFileTagError::AudioFileTagError(Kind errorKind, QUrl file, QString reason, QStringList tagNames)
    : kind(errorKind)
    , url(std::move(file))
    , text(std::move(reason))
    , names(std::move(tagNames))
{
}

AudioFileTagError AudioFileTagError::malformedOutput(QString text)
{
    return {Kind::malformedOutput, {}, std::move(text), {}};
}

AudioFileTagError AudioFileTagError::fileMissing(QUrl url)
{
    return {Kind::fileMissing, std::move(url), {}, {}};
}

AudioFileTagError AudioFileTagError::fileChangedOnDisk(QUrl url)
{
    return {Kind::fileChangedOnDisk, std::move(url), {}, {}};
}

AudioFileTagError AudioFileTagError::notWritable(QUrl url)
{
    return {Kind::notWritable, std::move(url), {}, {}};
}

AudioFileTagError AudioFileTagError::noAttachedPicture(QUrl url)
{
    return {Kind::noAttachedPicture, std::move(url), {}, {}};
}

AudioFileTagError AudioFileTagError::wouldLoseTags(QUrl url, QStringList names)
{
    return {Kind::wouldLoseTags, std::move(url), {}, std::move(names)};
}

QString AudioFileTagError::description() const
{
    const QString quotedName = u'"' + lastPathComponent(url) + u'"';
    switch (kind) {
    case Kind::malformedOutput:
        return u"ffprobe returned data that couldn't be read. "_s + text;
    case Kind::fileMissing:
        return quotedName + u" is no longer there."_s;
    case Kind::fileChangedOnDisk:
        return quotedName + u" was changed by something else since it was loaded."_s;
    case Kind::notWritable:
        return quotedName + u" can't be written to."_s;
    case Kind::noAttachedPicture:
        return quotedName + u" has no embedded artwork."_s;
    case Kind::wouldLoseTags:
        return lossText(quotedName, names);
    }
    Q_UNREACHABLE();
}

std::optional<QString> AudioFileTagError::recoverySuggestion() const
{
    switch (kind) {
    case Kind::malformedOutput:
        return u"Check that ffprobe runs correctly in Terminal, then try again."_s;
    case Kind::fileMissing:
    case Kind::fileChangedOnDisk:
        return u"Choose the folder again to reload what's actually on disk."_s;
    case Kind::notWritable:
        return u"Check the file isn't locked and that you have permission to write to the folder it's in."_s;
    case Kind::noAttachedPicture:
        return u"Choose an image to embed first."_s;
    case Kind::wouldLoseTags:
        return u"These are identifiers rather than anything a player shows — usually MusicBrainz or "
               "ReplayGain values in an .m4a. Save anyway if you don't need them, or edit the file in a "
               "tagger that understands them."_s;
    }
    Q_UNREACHABLE();
}

bool AudioFileTagError::operator==(const AudioFileTagError &other) const
{
    return kind == other.kind && url == other.url && text == other.text && names == other.names;
}

} // namespace tonearm
