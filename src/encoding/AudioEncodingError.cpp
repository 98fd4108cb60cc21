// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/AudioEncodingError.h"

#include "support/Numbers.h"
#include "support/PathText.h"

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

AudioEncodingError::AudioEncodingError(Kind errorKind, QUrl place, qint64 number)
    : kind(errorKind)
    , url(std::move(place))
    , count(number)
{
}

AudioEncodingError AudioEncodingError::outputDirectoryUnavailable(QUrl url)
{
    return {Kind::outputDirectoryUnavailable, std::move(url), 0};
}

AudioEncodingError AudioEncodingError::outputDirectoryNotWritable(QUrl url)
{
    return {Kind::outputDirectoryNotWritable, std::move(url), 0};
}

AudioEncodingError AudioEncodingError::untitledChapters(qint64 count)
{
    return {Kind::untitledChapters, {}, count};
}

AudioEncodingError AudioEncodingError::coverArtUnreadable(QUrl url)
{
    return {Kind::coverArtUnreadable, std::move(url), 0};
}

AudioEncodingError AudioEncodingError::noChapters()
{
    return {Kind::noChapters, {}, 0};
}

AudioEncodingError AudioEncodingError::incompleteTrack(double readSeconds, double seconds, QString complaint)
{
    AudioEncodingError error(Kind::incompleteTrack, {}, 0);
    error.readSeconds = readSeconds;
    error.seconds = seconds;
    error.complaint = std::move(complaint);
    return error;
}

QString AudioEncodingError::description() const
{
    const QString quotedName = u'"' + lastPathComponent(url) + u'"';
    switch (kind) {
    case Kind::outputDirectoryUnavailable:
        return u"The output folder "_s + quotedName + u" couldn't be created."_s;
    case Kind::outputDirectoryNotWritable:
        return u"The output folder "_s + quotedName + u" isn't writable."_s;
    case Kind::untitledChapters:
        return count == 1 ? u"One track still needs a title."_s
                          : u"%1 tracks still need titles."_s.arg(count);
    case Kind::coverArtUnreadable:
        return u"The cover image "_s + quotedName + u" couldn't be opened."_s;
    case Kind::noChapters:
        return u"There are no chapters to encode."_s;
    case Kind::incompleteTrack:
        return u"Only "_s + fixedPoint(readSeconds, 1) + u" of "_s + fixedPoint(seconds, 1) +
               u" seconds could be read. "_s + complaint;
    }
    Q_UNREACHABLE();
}

std::optional<QString> AudioEncodingError::recoverySuggestion() const
{
    switch (kind) {
    case Kind::outputDirectoryUnavailable:
    case Kind::outputDirectoryNotWritable:
        return u"Choose a different output folder."_s;
    case Kind::untitledChapters:
        return u"Fill in the remaining song titles, or map a release's tracklist."_s;
    case Kind::coverArtUnreadable:
        return u"Choose the image again, or remove it to encode without cover art."_s;
    case Kind::noChapters:
        return u"Load an .mkv file that has chapter markers."_s;
    case Kind::incompleteTrack:
        return u"Check the source file; it may be damaged or incomplete."_s;
    }
    Q_UNREACHABLE();
}

bool AudioEncodingError::operator==(const AudioEncodingError &other) const
{
    return kind == other.kind && url == other.url && count == other.count &&
           readSeconds == other.readSeconds && seconds == other.seconds && complaint == other.complaint;
}

} // namespace tonearm
