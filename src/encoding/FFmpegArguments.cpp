// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/FFmpegArguments.h"

#include "support/Numbers.h"
#include "support/Text.h"
#include "workflow/records/DigitText.h"

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QStringList seekArguments(const TrackEncoding &track)
{
    if (track.wholeFile)
        return {};
    return {u"-accurate_seek"_s, u"-ss"_s, secondsText(track.chapter.startSeconds)};
}

QStringList inputArguments(const TrackEncoding &track)
{
    QStringList result = {u"-i"_s, track.source.toLocalFile()};
    if (track.metadata.coverArtURL)
        result << u"-i"_s << track.metadata.coverArtURL->toLocalFile();
    return result;
}

QStringList lengthArguments(const TrackEncoding &track)
{
    if (track.wholeFile)
        return {};
    return {u"-t"_s, secondsText(track.duration())};
}

QStringList streamArguments(const TrackEncoding &track)
{
    QStringList result = {u"-map"_s, u"0:a:0"_s};
    if (track.metadata.coverArtURL)
        result << u"-map"_s << u"1:v:0"_s;
    else
        result << u"-vn"_s;
    return result << u"-c:a"_s << u"flac"_s;
}

QStringList coverArguments(const TrackEncoding &track)
{
    if (!track.metadata.coverArtURL)
        return {};
    return {u"-c:v"_s,
            u"copy"_s,
            u"-disposition:v:0"_s,
            u"attached_pic"_s,
            u"-metadata:s:v"_s,
            u"title=Album cover"_s,
            u"-metadata:s:v"_s,
            u"comment=Cover (front)"_s};
}

QStringList metadataArguments(const TrackEncoding &track)
{
    const AudioMetadata &metadata = track.metadata;
    // The keys' case counts: a tag keeps it wherever FLAC has no name of its own for the key.
    const QList<std::pair<QString, QString>> pairs = {
        {u"track"_s, QString::number(track.number)},
        {u"TRACKTOTAL"_s, QString::number(track.total)},
        {u"disc"_s, digitsOnlyNumber(metadata.discNumber)},
        {u"DISCTOTAL"_s, digitsOnlyNumber(metadata.discTotal)},
        {u"title"_s, track.chapter.mappedTitle},
        {u"artist"_s, metadata.artist},
        {u"album_artist"_s, metadata.artist},
        {u"album"_s, metadata.album},
        {u"date"_s, firstFourDigits(metadata.year)},
        {u"genre"_s, metadata.genre},
    };
    QStringList result;
    for (const auto &[key, value] : pairs) {
        const QString text = trimmed(withoutNull(value));
        if (!text.isEmpty())
            result << u"-metadata"_s << QString(key + u'=' + text);
    }
    return result;
}

} // namespace

double TrackEncoding::duration() const
{
    return std::max(0.0, chapter.endSeconds - chapter.startSeconds);
}

QString secondsText(double seconds)
{
    constexpr int decimals = 6;
    return fixedPoint(seconds, decimals);
}

QStringList ffmpegArguments(const TrackEncoding &track)
{
    QStringList result = {u"-hide_banner"_s, u"-v"_s, u"error"_s, u"-progress"_s, u"pipe:2"_s, u"-nostats"_s};
    result << seekArguments(track) << inputArguments(track) << lengthArguments(track)
           << streamArguments(track) << coverArguments(track) << metadataArguments(track);
    return result << u"-y"_s << track.output.toLocalFile();
}

} // namespace tonearm
