// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/ServiceJson.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

using enum MetadataSource;

/// The detail of the failure to read the body; the empty text if it can be read.
template <typename Read> QString detail(const QByteArray &body, Read read)
{
    const auto error =
        test::errorOf<MetadataServiceError>([&] { return readServiceJson(body, discogs, read); });
    if (!error)
        return {};
    EXPECT_EQ(*error, MetadataServiceError::malformedResponse(discogs, error->text));
    return error->text;
}

qint64 secondTrackLength(const JsonNode &reply)
{
    const JsonNode medium = reply.require(u"media"_s).elements().at(0);
    return medium.require(u"tracks"_s).elements().at(1).require(u"length"_s).integer();
}

QString detailOfTracks(const QByteArray &tracks)
{
    return detail("{\"media\": [{\"tracks\": " + tracks + "}]}", &secondTrackLength);
}

} // namespace

TEST(ServiceJson, ReturnsWhatTheReaderMakes)
{
    EXPECT_EQ(readServiceJson("{\"media\": [{\"tracks\": [0, {\"length\": 245000}]}]}", discogs,
                              &secondTrackLength),
              245000);
}

TEST(ServiceJson, TellsThePlaceOfAValueOfAnotherType)
{
    EXPECT_EQ(detailOfTracks("[0, {\"length\": \"4:05\"}]"),
              u"Unexpected value at \"media.Index 0.tracks.Index 1.length\"."_s);
    EXPECT_EQ(detailOfTracks("[0, 1]"), u"Unexpected value at \"media.Index 0.tracks.Index 1\"."_s);
    EXPECT_EQ(detailOfTracks("{}"), u"Unexpected value at \"media.Index 0.tracks\"."_s);
}

TEST(ServiceJson, TellsThePlaceOfANullWhereAValueHasToBe)
{
    EXPECT_EQ(detailOfTracks("[0, {\"length\": null}]"),
              u"Unexpected value at \"media.Index 0.tracks.Index 1.length\"."_s);
}

TEST(ServiceJson, TellsTheReadersOwnWordsAtTheTop)
{
    EXPECT_EQ(detail("[]", &secondTrackLength), u"Expected an object at the top but found an array."_s);
}

TEST(ServiceJson, TellsTheNameOfAMissingField)
{
    EXPECT_EQ(detail("{}", &secondTrackLength), u"Expected field \"media\" was missing."_s);
    EXPECT_EQ(detailOfTracks("[0, {}]"), u"Expected field \"length\" was missing."_s);
}

TEST(ServiceJson, TellsThatItIsNoJson)
{
    const QByteArrayList bodies = {
        "", "  ", "<html></html>", "{\"media\": [", "{\"media\": \"\xff\"}", "\xff\xd8\xff"};
    for (const QByteArray &body : bodies)
        EXPECT_EQ(detail(body, &secondTrackLength), u"The response wasn't valid JSON."_s)
            << body.toStdString();
}

TEST(ServiceJson, RefusesDeepNestingWithoutFallingOver)
{
    EXPECT_EQ(detail(QByteArray(100000, '['), &secondTrackLength), u"The response wasn't valid JSON."_s);
}

TEST(ServiceJson, HasWordsForAReadersOwnComplaints)
{
    const auto read = [](const JsonNode &) -> int { throw JsonError(u"Tuesday."_s); };
    EXPECT_EQ(detail("{}", read), u"The response couldn't be decoded."_s);
}

TEST(ServiceJson, PassesOnOtherFailures)
{
    const auto read = [](const JsonNode &) -> int { throw std::runtime_error("other"); };
    EXPECT_TRUE(
        test::errorOf<std::runtime_error>([&] { return readServiceJson("{}", discogs, read); }).has_value());
}

} // namespace tonearm
