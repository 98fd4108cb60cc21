// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/MusicBrainzMapping.h"

#include "support/Text.h"

#include <algorithm>

namespace tonearm::musicBrainz {

using namespace Qt::StringLiterals;

namespace {

// Within double quotes only these two have a meaning in the service's search syntax.
QString quoted(QString text)
{
    text.replace(u"\\"_s, u"\\\\"_s);
    text.replace(u"\""_s, u"\\\""_s);
    return u'"' + text + u'"';
}

QString artistOf(const Release &release)
{
    QString joined;
    for (const ArtistCredit &credit : release.artistCredits)
        joined += credit.name.value_or(credit.artistName.value_or(QString())) + credit.joinPhrase;
    return trimmedBlanks(joined);
}

const Medium *mediumWithDisc(const Release &release, const std::optional<QString> &discID)
{
    if (!discID)
        return nullptr;
    const auto found = std::find_if(release.media.cbegin(), release.media.cend(),
                                    [&](const Medium &medium) { return medium.discIDs.contains(*discID); });
    return found == release.media.cend() ? nullptr : &*found;
}

// Nothing as well for counts that no release has, whose sum wouldn't fit.
std::optional<qint64> summedTrackCount(const QList<Medium> &media)
{
    std::optional<qint64> sum;
    for (const Medium &medium : media) {
        qint64 next = 0;
        if (!medium.trackCount)
            continue;
        if (__builtin_add_overflow(sum.value_or(0), *medium.trackCount, &next))
            return std::nullopt;
        sum = next;
    }
    return sum;
}

std::optional<qint64> trackCountOf(const Release &release, const Medium *matched)
{
    if (matched && matched->trackCount)
        return matched->trackCount;
    return release.trackCount ? release.trackCount : summedTrackCount(release.media);
}

} // namespace

std::optional<QString> searchQuery(const QString &artist, const QString &album)
{
    QStringList terms;
    if (const QString text = trimmed(artist); !text.isEmpty())
        terms.append(u"artist:"_s + quoted(text));
    if (const QString text = trimmed(album); !text.isEmpty())
        terms.append(u"release:"_s + quoted(text));
    return terms.isEmpty() ? std::nullopt : std::optional(terms.join(u" AND "_s));
}

TrackInfo trackInfo(const Track &track)
{
    const QString countedPosition = track.position ? QString::number(*track.position) : QString();
    return {
        .position = track.number.value_or(countedPosition),
        .title = track.title.value_or(track.recordingTitle.value_or(QString())),
        .durationMilliseconds = track.length ? track.length : track.recordingLength,
    };
}

QList<TrackInfo> trackInfos(const QList<Track> &tracks)
{
    QList<TrackInfo> result;
    result.reserve(tracks.size());
    std::transform(tracks.cbegin(), tracks.cend(), std::back_inserter(result), trackInfo);
    return result;
}

ReleaseInfo releaseInfo(const Release &release, const std::optional<QString> &discID, const QString &webSite)
{
    const Medium *matched = mediumWithDisc(release, discID);
    const LabelInfo label = release.labels.value(0);
    return {
        .id = release.id,
        .artist = artistOf(release),
        .title = release.title,
        .year = firstCharacters(release.date, 4),
        .label = label.labelName,
        .catalogNumber = label.catalogNumber,
        .country = release.country,
        .packaging = release.packaging,
        .mediaFormat = release.media.value(0).format,
        .barcode = release.barcode,
        .url = webSite + u"/release/"_s + release.id,
        .source = MetadataSource::musicBrainz,
        .tracks = matched ? trackInfos(matched->tracks) : QList<TrackInfo>(),
        .trackCount = trackCountOf(release, matched),
        .matchedDiscPosition = matched ? matched->position : std::nullopt,
        .discCount = release.media.isEmpty() ? std::nullopt : std::optional(release.media.size()),
    };
}

} // namespace tonearm::musicBrainz
