// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/DiscError.h"

#include "support/PathText.h"

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

DiscError::DiscError(Kind errorKind, QUrl volume, qint64 trackNumber, QString reason)
    : kind(errorKind)
    , url(std::move(volume))
    , number(trackNumber)
    , text(std::move(reason))
{
}

DiscError DiscError::notAnAudioDisc(QUrl volume)
{
    return {Kind::notAnAudioDisc, std::move(volume), 0, {}};
}

DiscError DiscError::malformedTOC(QString text)
{
    return {Kind::malformedTOC, {}, 0, std::move(text)};
}

DiscError DiscError::trackUnreadable(qint64 number)
{
    return {Kind::trackUnreadable, {}, number, {}};
}

DiscError DiscError::trackReadFailed(qint64 number, QString detail)
{
    return {Kind::trackReadFailed, {}, number, std::move(detail)};
}

DiscError DiscError::noAudioTracks()
{
    return {Kind::noAudioTracks, {}, 0, {}};
}

DiscError DiscError::driveUnavailable()
{
    return {Kind::driveUnavailable, {}, 0, {}};
}

QString DiscError::description() const
{
    const QString unreadTrack = u"Track "_s + QString::number(number) + u" couldn't be read from the disc."_s;
    switch (kind) {
    case Kind::notAnAudioDisc:
        return u'"' + lastPathComponent(url) + u"\" isn't a mounted audio CD."_s;
    case Kind::malformedTOC:
        return u"The disc's table of contents couldn't be read. "_s + text;
    case Kind::trackUnreadable:
        return unreadTrack;
    case Kind::trackReadFailed:
        return unreadTrack + u' ' + text;
    case Kind::noAudioTracks:
        return u"This disc has no audio tracks."_s;
    case Kind::driveUnavailable:
        return u"The drive holding this disc couldn't be identified."_s;
    }
    Q_UNREACHABLE();
}

std::optional<QString> DiscError::recoverySuggestion() const
{
    switch (kind) {
    case Kind::notAnAudioDisc:
    case Kind::noAudioTracks:
        return u"Insert an audio CD and try again."_s;
    case Kind::malformedTOC:
        return u"Eject the disc and reinsert it."_s;
    case Kind::trackUnreadable:
    case Kind::trackReadFailed:
        return u"Check the disc for scratches, then eject it and try again."_s;
    case Kind::driveUnavailable:
        return u"Eject the disc and reinsert it. If secure ripping is on, try switching it off in Settings."_s;
    }
    Q_UNREACHABLE();
}

bool DiscError::operator==(const DiscError &other) const
{
    return kind == other.kind && url == other.url && number == other.number && text == other.text;
}

} // namespace tonearm
