// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/DiscogsPayload.h"

#include "support/JsonLists.h"
#include "web/LenientString.h"

namespace tonearm::discogs {

using namespace Qt::StringLiterals;

namespace {

QString readText(const JsonNode &node)
{
    return node.text();
}

Result readResult(const JsonNode &node)
{
    return {
        .id = node.require(u"id"_s).integer(),
        .title = textOrEmpty(node, u"title"_s),
        .year = LenientString::find(node, u"year"_s).text,
        .country = textOrEmpty(node, u"country"_s),
        .catalogNumber = textOrEmpty(node, u"catno"_s),
        .uri = textOrEmpty(node, u"uri"_s),
        .labels = readList(node, u"label"_s, readText),
        .formats = readList(node, u"format"_s, readText),
        .barcodes = readList(node, u"barcode"_s, readText),
    };
}

Label readLabel(const JsonNode &node)
{
    return {.name = textOrEmpty(node, u"name"_s), .catalogNumber = textOrEmpty(node, u"catno"_s)};
}

Format readFormat(const JsonNode &node)
{
    return {.name = textOrEmpty(node, u"name"_s), .text = textOrEmpty(node, u"text"_s)};
}

Identifier readIdentifier(const JsonNode &node)
{
    return {.type = textOrEmpty(node, u"type"_s), .value = textOrEmpty(node, u"value"_s)};
}

Track readTrack(const JsonNode &node)
{
    return {
        .position = textOrEmpty(node, u"position"_s),
        .title = textOrEmpty(node, u"title"_s),
        .duration = textOrEmpty(node, u"duration"_s),
        .type = node.findText(u"type_"_s),
    };
}

Image readImage(const JsonNode &node)
{
    return {
        .type = textOrEmpty(node, u"type"_s),
        .uri = textOrEmpty(node, u"uri"_s),
        .width = node.findInteger(u"width"_s),
        .height = node.findInteger(u"height"_s),
    };
}

} // namespace

QList<Result> readResults(const JsonNode &reply)
{
    return readList(reply, u"results"_s, readResult);
}

ReleaseDetails readReleaseDetails(const JsonNode &reply)
{
    return {
        .id = reply.findInteger(u"id"_s),
        .title = textOrEmpty(reply, u"title"_s),
        .artist = textOrEmpty(reply, u"artists_sort"_s),
        .year = LenientString::find(reply, u"year"_s).text,
        .country = textOrEmpty(reply, u"country"_s),
        .uri = textOrEmpty(reply, u"uri"_s),
        .labels = readList(reply, u"labels"_s, readLabel),
        .formats = readList(reply, u"formats"_s, readFormat),
        .identifiers = readList(reply, u"identifiers"_s, readIdentifier),
        .tracklist = readList(reply, u"tracklist"_s, readTrack),
        .images = readList(reply, u"images"_s, readImage),
    };
}

} // namespace tonearm::discogs
