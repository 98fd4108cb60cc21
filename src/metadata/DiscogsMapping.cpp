// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/DiscogsMapping.h"

#include "support/Numbers.h"
#include "support/Text.h"

#include <algorithm>
#include <iterator>

namespace tonearm::discogs {

using namespace Qt::StringLiterals;

namespace {

bool isEqualIgnoringCase(const QString &first, const QString &second)
{
    return first.compare(second, Qt::CaseInsensitive) == 0;
}

bool isTrack(const Track &row)
{
    return !row.title.isEmpty() && (!row.type || row.type->toLower() == u"track"_s);
}

// A number without a sign; nothing for any other text.
std::optional<qint64> plainNumber(const QString &text)
{
    const bool isPlain =
        std::all_of(text.cbegin(), text.cend(), [](QChar unit) { return unit >= u'0' && unit <= u'9'; });
    return isPlain ? parseInteger(text) : std::nullopt;
}

QString barcodeOf(const QList<Identifier> &identifiers)
{
    const auto found =
        std::find_if(identifiers.cbegin(), identifiers.cend(), [](const Identifier &identifier) {
            return isEqualIgnoringCase(identifier.type, u"Barcode"_s);
        });
    return found == identifiers.cend() ? QString() : found->value;
}

QString pageAddress(const QString &uri, const QString &id, const QString &webSite)
{
    if (uri.isEmpty())
        return webSite + u"/release/"_s + id;
    return uri.startsWith(u'/') ? QString(webSite + uri) : uri;
}

} // namespace

std::optional<qint64> durationMilliseconds(const QString &text)
{
    const QStringList pieces = trimmedBlanks(text).split(u':');
    if (pieces.size() > 3)
        return std::nullopt;
    qint64 total = 0;
    for (const QString &piece : pieces) {
        const std::optional<qint64> number = plainNumber(piece);
        if (!number || __builtin_mul_overflow(total, 60, &total) ||
            __builtin_add_overflow(total, *number, &total))
            return std::nullopt;
    }
    return __builtin_mul_overflow(total, 1000, &total) ? std::nullopt : std::optional(total);
}

QList<TrackInfo> trackInfos(const QList<Track> &tracklist)
{
    QList<TrackInfo> result;
    for (const Track &row : tracklist) {
        if (!isTrack(row))
            continue;
        result.append(TrackInfo{
            .position = row.position,
            .title = row.title,
            .durationMilliseconds = durationMilliseconds(row.duration),
        });
    }
    return result;
}

QStringList artworkURLs(const QList<Image> &images)
{
    QStringList primary;
    QStringList others;
    for (const Image &image : images) {
        if (!image.uri.isEmpty())
            (isEqualIgnoringCase(image.type, u"primary"_s) ? primary : others).append(image.uri);
    }
    return primary + others;
}

ReleaseInfo releaseInfo(const Result &result, const QString &webSite)
{
    const QString id = QString::number(result.id);
    return {
        .id = id,
        .title = result.title,
        .year = result.year,
        .label = result.labels.value(0),
        .catalogNumber = result.catalogNumber,
        .country = result.country,
        .mediaFormat = result.formats.value(0),
        .barcode = result.barcodes.value(0),
        .url = pageAddress(result.uri, id, webSite),
        .source = MetadataSource::discogs,
    };
}

ReleaseInfo releaseInfo(const ReleaseDetails &details, const QString &askedID, const QString &webSite)
{
    const QString id = details.id ? QString::number(*details.id) : askedID;
    const Label label = details.labels.value(0);
    const Format format = details.formats.value(0);
    const QList<TrackInfo> tracks = trackInfos(details.tracklist);
    return {
        .id = id,
        .artist = details.artist,
        .title = details.title,
        .year = details.year,
        .label = label.name,
        .catalogNumber = label.catalogNumber,
        .country = details.country,
        .packaging = format.text,
        .mediaFormat = format.name,
        .barcode = barcodeOf(details.identifiers),
        .url = pageAddress(details.uri, id, webSite),
        .source = MetadataSource::discogs,
        .tracks = tracks,
        .artworkURLs = artworkURLs(details.images),
        .trackCount = tracks.size(),
    };
}

} // namespace tonearm::discogs
