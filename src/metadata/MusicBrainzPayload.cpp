// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/MusicBrainzPayload.h"

#include "support/JsonLists.h"

namespace tonearm::musicBrainz {

using namespace Qt::StringLiterals;

namespace {

ArtistCredit readArtistCredit(const JsonNode &node)
{
    const std::optional<JsonNode> artist = node.findObject(u"artist"_s);
    return {
        .name = node.findText(u"name"_s),
        .artistName = artist ? artist->findText(u"name"_s) : std::nullopt,
        .joinPhrase = textOrEmpty(node, u"joinphrase"_s),
    };
}

LabelInfo readLabelInfo(const JsonNode &node)
{
    const std::optional<JsonNode> label = node.findObject(u"label"_s);
    return {
        .catalogNumber = textOrEmpty(node, u"catalog-number"_s),
        .labelName = label ? textOrEmpty(*label, u"name"_s) : QString(),
    };
}

Track readTrack(const JsonNode &node)
{
    const std::optional<JsonNode> recording = node.findObject(u"recording"_s);
    return {
        .number = node.findText(u"number"_s),
        .position = node.findInteger(u"position"_s),
        .title = node.findText(u"title"_s),
        .length = node.findInteger(u"length"_s),
        .recordingTitle = recording ? recording->findText(u"title"_s) : std::nullopt,
        .recordingLength = recording ? recording->findInteger(u"length"_s) : std::nullopt,
    };
}

QString readDiscID(const JsonNode &node)
{
    return textOrEmpty(node, u"id"_s);
}

Medium readMedium(const JsonNode &node)
{
    return {
        .format = textOrEmpty(node, u"format"_s),
        .trackCount = node.findInteger(u"track-count"_s),
        .position = node.findInteger(u"position"_s),
        .discIDs = readList(node, u"discs"_s, readDiscID),
        .tracks = readList(node, u"tracks"_s, readTrack),
    };
}

Release readRelease(const JsonNode &node)
{
    return {
        .id = node.require(u"id"_s).text(),
        .title = textOrEmpty(node, u"title"_s),
        .date = textOrEmpty(node, u"date"_s),
        .country = textOrEmpty(node, u"country"_s),
        .barcode = textOrEmpty(node, u"barcode"_s),
        .packaging = textOrEmpty(node, u"packaging"_s),
        .artistCredits = readList(node, u"artist-credit"_s, readArtistCredit),
        .labels = readList(node, u"label-info"_s, readLabelInfo),
        .media = readList(node, u"media"_s, readMedium),
        .trackCount = node.findInteger(u"track-count"_s),
    };
}

QList<Track> readMediumTracks(const JsonNode &node)
{
    return readList(node, u"tracks"_s, readTrack);
}

} // namespace

QList<Release> readReleases(const JsonNode &reply)
{
    return readList(reply, u"releases"_s, readRelease);
}

QList<Track> readTracks(const JsonNode &reply)
{
    QList<Track> all;
    for (const QList<Track> &tracks : readList(reply, u"media"_s, readMediumTracks))
        all.append(tracks);
    return all;
}

} // namespace tonearm::musicBrainz
