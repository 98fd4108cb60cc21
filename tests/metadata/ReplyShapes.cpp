// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/ReplyShapes.h"

namespace tonearm::test {

using namespace Qt::StringLiterals;

using Shape = ReplyShape;

namespace {

Shape texts()
{
    return Shape::array(Shape::text());
}

Shape musicBrainzTracks()
{
    const Shape recording = Shape::object({{u"title"_s, Shape::text()}, {u"length"_s, Shape::integer()}});
    return Shape::array(Shape::object({
        {u"number"_s, Shape::text()},
        {u"position"_s, Shape::integer()},
        {u"title"_s, Shape::text()},
        {u"length"_s, Shape::integer()},
        {u"recording"_s, recording},
    }));
}

} // namespace

ReplyShape musicBrainzReleases()
{
    const Shape named = Shape::object({{u"name"_s, Shape::text()}});
    const Shape credit =
        Shape::object({{u"name"_s, Shape::text()}, {u"joinphrase"_s, Shape::text()}, {u"artist"_s, named}});
    const Shape label = Shape::object({{u"catalog-number"_s, Shape::text()}, {u"label"_s, named}});
    const Shape disc = Shape::object({{u"id"_s, Shape::text()}});
    const Shape medium = Shape::object({
        {u"format"_s, Shape::text()},
        {u"track-count"_s, Shape::integer()},
        {u"position"_s, Shape::integer()},
        {u"discs"_s, Shape::array(disc)},
        {u"tracks"_s, musicBrainzTracks()},
    });
    const Shape release = Shape::object({
        {u"id"_s, Shape::text().required()},
        {u"title"_s, Shape::text()},
        {u"date"_s, Shape::text()},
        {u"country"_s, Shape::text()},
        {u"barcode"_s, Shape::text()},
        {u"packaging"_s, Shape::text()},
        {u"artist-credit"_s, Shape::array(credit)},
        {u"label-info"_s, Shape::array(label)},
        {u"media"_s, Shape::array(medium)},
        {u"track-count"_s, Shape::integer()},
    });
    return Shape::object({{u"releases"_s, Shape::array(release)}});
}

ReplyShape musicBrainzRelease()
{
    const Shape medium = Shape::object({{u"tracks"_s, musicBrainzTracks()}});
    return Shape::object({{u"media"_s, Shape::array(medium)}});
}

ReplyShape discogsResults()
{
    const Shape result = Shape::object({
        {u"id"_s, Shape::integer().required()},
        {u"title"_s, Shape::text()},
        {u"year"_s, Shape::textOrNumber()},
        {u"country"_s, Shape::text()},
        {u"catno"_s, Shape::text()},
        {u"uri"_s, Shape::text()},
        {u"label"_s, texts()},
        {u"format"_s, texts()},
        {u"barcode"_s, texts()},
    });
    return Shape::object({{u"results"_s, Shape::array(result)}});
}

ReplyShape discogsRelease()
{
    const Shape label = Shape::object({{u"name"_s, Shape::text()}, {u"catno"_s, Shape::text()}});
    const Shape format = Shape::object({{u"name"_s, Shape::text()}, {u"text"_s, Shape::text()}});
    const Shape identifier = Shape::object({{u"type"_s, Shape::text()}, {u"value"_s, Shape::text()}});
    const Shape track = Shape::object({
        {u"position"_s, Shape::text()},
        {u"title"_s, Shape::text()},
        {u"duration"_s, Shape::text()},
        {u"type_"_s, Shape::text()},
    });
    const Shape image = Shape::object({
        {u"type"_s, Shape::text()},
        {u"uri"_s, Shape::text()},
        {u"width"_s, Shape::integer()},
        {u"height"_s, Shape::integer()},
    });
    return Shape::object({
        {u"id"_s, Shape::integer()},
        {u"title"_s, Shape::text()},
        {u"artists_sort"_s, Shape::text()},
        {u"year"_s, Shape::textOrNumber()},
        {u"country"_s, Shape::text()},
        {u"uri"_s, Shape::text()},
        {u"labels"_s, Shape::array(label)},
        {u"formats"_s, Shape::array(format)},
        {u"identifiers"_s, Shape::array(identifier)},
        {u"tracklist"_s, Shape::array(track)},
        {u"images"_s, Shape::array(image)},
    });
}

} // namespace tonearm::test
