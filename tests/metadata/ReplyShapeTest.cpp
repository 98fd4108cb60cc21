// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "metadata/DiscogsPayload.h"
#include "metadata/MusicBrainzPayload.h"
#include "metadata/Records.h"
#include "metadata/ReplyShapes.h"
#include "web/ServiceJson.h"

#include <gtest/gtest.h>

#include <QJsonObject>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::Place;
using test::ReplyShape;

namespace {

// A reply, what it may hold, and its reader. Each kind of reply runs through all tests below.

struct MusicBrainzReleases
{
    static ReplyShape shape() { return test::musicBrainzReleases(); }

    static QList<musicBrainz::Release> read(const JsonNode &reply)
    {
        return musicBrainz::readReleases(reply);
    }
};

struct MusicBrainzRelease
{
    static ReplyShape shape() { return test::musicBrainzRelease(); }

    static QList<musicBrainz::Track> read(const JsonNode &reply) { return musicBrainz::readTracks(reply); }
};

struct DiscogsResults
{
    static ReplyShape shape() { return test::discogsResults(); }

    static QList<discogs::Result> read(const JsonNode &reply) { return discogs::readResults(reply); }
};

struct DiscogsRelease
{
    static ReplyShape shape() { return test::discogsRelease(); }

    static discogs::ReleaseDetails read(const JsonNode &reply) { return discogs::readReleaseDetails(reply); }
};

template <typename Reply> auto readingOf(const QJsonValue &document)
{
    return readServiceJson(test::written(document), MetadataSource::discogs, Reply::read);
}

template <typename Reply> std::optional<MetadataServiceError> failureOf(const QJsonValue &document)
{
    return test::errorOf<MetadataServiceError>([&] { return readingOf<Reply>(document); });
}

MetadataServiceError malformed(const QString &detail)
{
    return MetadataServiceError::malformedResponse(MetadataSource::discogs, detail);
}

QList<Place> placesWhere(const ReplyShape &shape, bool (*isWanted)(const Place &))
{
    QList<Place> places = test::placesIn(shape);
    places.removeIf([&](const Place &place) { return !isWanted(place); });
    return places;
}

template <typename Reply> class ReplyReading : public testing::Test
{
protected:
    const ReplyShape shape = Reply::shape();
    const QJsonValue document = test::completeDocument(shape);
};

using Replies = testing::Types<MusicBrainzReleases, MusicBrainzRelease, DiscogsResults, DiscogsRelease>;
TYPED_TEST_SUITE(ReplyReading, Replies);

} // namespace

TYPED_TEST(ReplyReading, TellsThePlaceOfEveryValueOfTheWrongType)
{
    for (const Place &place : test::placesIn(this->shape)) {
        for (const QJsonValue &wrong : test::wrongValues(place)) {
            const QJsonValue spoilt = test::replaced(this->document, place.steps, wrong);
            EXPECT_EQ(failureOf<TypeParam>(spoilt),
                      malformed(u"Unexpected value at \"%1\"."_s.arg(place.path())))
                << place.path().toStdString() << ", JSON type " << wrong.type();
        }
    }
}

TYPED_TEST(ReplyReading, TakesNullForAbsentWhereNothingHasToBe)
{
    for (const Place &place : placesWhere(this->shape, [](const Place &each) { return each.isOptional(); })) {
        SCOPED_TRACE(place.path().toStdString());
        const QJsonValue null = test::replaced(this->document, place.steps, QJsonValue::Null);
        const QJsonValue missing = test::replaced(this->document, place.steps, QJsonValue::Undefined);
        EXPECT_EQ(readingOf<TypeParam>(null), readingOf<TypeParam>(missing));
    }
}

TYPED_TEST(ReplyReading, TakesEveryValueFromItsPlace)
{
    const auto expected = readingOf<TypeParam>(this->document);
    for (const Place &place : placesWhere(this->shape, [](const Place &each) { return each.isLeaf(); })) {
        SCOPED_TRACE(place.path().toStdString());
        const QJsonValue other = test::otherValue(place.shape);
        EXPECT_NE(readingOf<TypeParam>(test::replaced(this->document, place.steps, other)), expected);
    }
}

TYPED_TEST(ReplyReading, TakesAnyValueUnderKeysThatItDoesNotKnow)
{
    const auto expected = readingOf<TypeParam>(this->document);
    for (const Place &place : placesWhere(this->shape, [](const Place &each) { return each.isObject(); })) {
        SCOPED_TRACE(place.path().toStdString());
        const QList<test::Step> inside = place.steps + QList<test::Step>{u"unheard-of"_s};
        EXPECT_EQ(readingOf<TypeParam>(test::replaced(this->document, inside, true)), expected);
    }
}

TYPED_TEST(ReplyReading, TakesAnEmptyObjectForAnEmptyReply)
{
    EXPECT_EQ(failureOf<TypeParam>(QJsonObject()), std::nullopt);
}

TYPED_TEST(ReplyReading, RefusesAReplyThatIsNoObject)
{
    const auto failure = test::errorOf<MetadataServiceError>(
        [] { return readServiceJson("[]", MetadataSource::discogs, TypeParam::read); });
    EXPECT_EQ(failure, malformed(u"Expected an object at the top but found an array."_s));
}

TEST(SearchReading, MissesAnIdentifier)
{
    const QByteArray without = R"([{"title": "Untold"}]})";
    const auto failure = malformed(u"Expected field \"id\" was missing."_s);
    EXPECT_EQ(test::errorOf<MetadataServiceError>([&] {
                  return readServiceJson(R"({"releases": )" + without, MetadataSource::discogs,
                                         musicBrainz::readReleases);
              }),
              failure);
    EXPECT_EQ(test::errorOf<MetadataServiceError>([&] {
                  return readServiceJson(R"({"results": )" + without, MetadataSource::discogs,
                                         discogs::readResults);
              }),
              failure);
}

TEST(DiscogsReading, TakesAnythingForAYear)
{
    const auto yearOf = [](const QByteArray &value) {
        const QByteArray reply = R"({"results": [{"id": 1, "year": )" + value + "}]}";
        return discogs::readResults(JsonNode::parse(reply)).first().year;
    };
    EXPECT_EQ(yearOf("1998"), u"1998"_s);
    EXPECT_EQ(yearOf("0"), u"0"_s);
    EXPECT_EQ(yearOf("1998.0"), u"1998"_s);
    EXPECT_EQ(yearOf("\"1998\""), u"1998"_s);
    EXPECT_EQ(yearOf("null"), QString());
    EXPECT_EQ(yearOf("true"), QString());
    EXPECT_EQ(yearOf("[1998]"), QString());
    EXPECT_EQ(yearOf("{}"), QString());
}

} // namespace tonearm
