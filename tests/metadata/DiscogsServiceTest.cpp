// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/DiscogsService.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "metadata/Records.h"
#include "metadata/ServicesFixture.h"
#include "support/Cancellation.h"

namespace tonearm {

using namespace Qt::StringLiterals;
using test::await;
using test::awaitError;
using test::discogsSource;
using test::LoopbackResponse;
using test::plain;
using test::track;
using Error = MetadataServiceError;

namespace {

class DiscogsServiceTest : public test::ServicesFixture
{
protected:
    QByteArrayList targets() const
    {
        QByteArrayList targets;
        for (const test::LoopbackRequest &request : discogsServer.requests())
            targets.append(request.target);
        return targets;
    }
};

} // namespace

TEST_F(DiscogsServiceTest, AsksForArtistAndAlbumUnderKeysOfTheirOwn)
{
    discogsServer.answer("/database/search", LoopbackResponse::json("{}"));
    await(discogs.search(u" AC/DC\n"_s, u"\"Back\" + Black & 椎 "_s, noStop));
    await(discogs.search(u"Nina"_s, u" "_s, noStop));
    await(discogs.search({}, u"Blue"_s, noStop));
    EXPECT_EQ(
        targets(),
        (QByteArrayList{"/database/search?artist=AC%2FDC&title=%22Back%22%20%2B%20Black%20%26%20%E6%A4%8E"
                        "&type=release&per_page=25",
                        "/database/search?artist=Nina&type=release&per_page=25",
                        "/database/search?title=Blue&type=release&per_page=25"}));
}

TEST_F(DiscogsServiceTest, KeepsThreeSecondsBetweenRequests)
{
    EXPECT_EQ(DiscogsService::minimumInterval, std::chrono::seconds(3));
}

TEST_F(DiscogsServiceTest, NamesTheProgramOnly)
{
    discogsServer.answerWith([](const auto &) { return LoopbackResponse::json("{}"); });
    await(discogs.search(u"A"_s, {}, noStop));
    await(discogs.details(u"1"_s, noStop));
    const auto requests = discogsServer.requests();
    ASSERT_EQ(requests.size(), 2);
    for (const test::LoopbackRequest &request : requests) {
        EXPECT_EQ(request.method, "GET");
        EXPECT_EQ(request.header("User-Agent"), shortUserAgent());
        EXPECT_EQ(request.header("Accept"), "application/json");
        EXPECT_FALSE(request.hasHeader("Authorization"));
    }
}

TEST_F(DiscogsServiceTest, AsksNothingForBlankTexts)
{
    EXPECT_EQ(await(discogs.search(u"\n"_s, {}, noStop)), QList<ReleaseInfo>());
    EXPECT_EQ(discogsServer.requests().size(), 0);
}

TEST_F(DiscogsServiceTest, FindsSummariesInTheServicesOrder)
{
    discogsServer.answer("/database/search",
                         LoopbackResponse::json(R"({"pagination": {"items": 2}, "results": [
        {"id": 9, "title": "Nina - Blue", "year": "1998", "uri": "/release/9-x"}, {"id": 3}]})"));
    EXPECT_EQ(await(discogs.search(u"Nina"_s, {}, noStop)),
              (QList{ReleaseInfo{.id = u"9"_s,
                                 .title = u"Nina - Blue"_s,
                                 .year = u"1998"_s,
                                 .url = u"https://dg.example/release/9-x"_s,
                                 .source = discogsSource},
                     ReleaseInfo{
                         .id = u"3"_s, .url = u"https://dg.example/release/3"_s, .source = discogsSource}}));
}

TEST_F(DiscogsServiceTest, FindsNothingInAnEmptyReply)
{
    for (const char *reply : {"{}", R"({"results": []})", R"({"results": null})"}) {
        discogsServer.answer("/database/search", LoopbackResponse::json(reply));
        EXPECT_EQ(await(discogs.search(u"A"_s, {}, noStop)), QList<ReleaseInfo>()) << reply;
    }
}

TEST_F(DiscogsServiceTest, FetchesAReleaseInFull)
{
    discogsServer.answer("/releases/12", LoopbackResponse::json(R"({"title": "Blue", "artists_sort": "Nina",
        "tracklist": [{"title": "Side A", "type_": "heading"}, {"position": "A1", "title": "Dawn"}]})"));
    EXPECT_EQ(plain(await(discogs.details(u" 12\n"_s, noStop))),
              (ReleaseInfo{.id = u"12"_s,
                           .artist = u"Nina"_s,
                           .title = u"Blue"_s,
                           .url = u"https://dg.example/release/12"_s,
                           .source = discogsSource,
                           .tracks = {track(u"A1"_s, u"Dawn"_s)},
                           .trackCount = 1}));
    EXPECT_EQ(targets(), (QByteArrayList{"/releases/12"}));
}

TEST_F(DiscogsServiceTest, TellsThatAReleaseIsNotThere)
{
    EXPECT_EQ(awaitError<Error>(discogs.details(u" 12 "_s, noStop)),
              Error::releaseNotFound(discogsSource, u"12"_s));
}

TEST_F(DiscogsServiceTest, RefusesABlankRelease)
{
    EXPECT_EQ(awaitError<Error>(discogs.details(u" \n"_s, noStop)), Error::invalidQuery(u" \n"_s));
    EXPECT_EQ(discogsServer.requests().size(), 0);
}

TEST_F(DiscogsServiceTest, PassesFailuresOnWithoutAskingAgain)
{
    discogsServer.answerWith([](const auto &) { return LoopbackResponse::withStatus(429); });
    EXPECT_EQ(awaitError<Error>(discogs.search(u"A"_s, {}, noStop)), Error::rateLimited(discogsSource));
    EXPECT_EQ(awaitError<Error>(discogs.details(u"1"_s, noStop)), Error::rateLimited(discogsSource));
    EXPECT_EQ(discogsServer.requests().size(), 2);
}

TEST_F(DiscogsServiceTest, TakesOnlyAReleasesAbsenceForAnAnswer)
{
    discogsServer.answer("/releases/1", LoopbackResponse::withStatus(500));
    EXPECT_EQ(awaitError<Error>(discogs.details(u"1"_s, noStop)), Error::httpFailure(discogsSource, 500));
    discogsServer.answer("/database/search", LoopbackResponse::withStatus(404));
    EXPECT_EQ(awaitError<Error>(discogs.search(u"A"_s, {}, noStop)), Error::httpFailure(discogsSource, 404));
}

TEST_F(DiscogsServiceTest, TellsWhereAReplyIsMalformed)
{
    discogsServer.answerWith([](const auto &) {
        return LoopbackResponse::json(R"({"results": [{"id": "9"}], "images": [{"width": "600"}]})");
    });
    EXPECT_EQ(awaitError<Error>(discogs.search(u"A"_s, {}, noStop)),
              Error::malformedResponse(discogsSource, u"Unexpected value at \"results.Index 0.id\"."_s));
    EXPECT_EQ(awaitError<Error>(discogs.details(u"1"_s, noStop)),
              Error::malformedResponse(discogsSource, u"Unexpected value at \"images.Index 0.width\"."_s));
}

TEST_F(DiscogsServiceTest, StopsWhenAsked)
{
    discogsServer.answerWith([](const auto &) { return LoopbackResponse::silence(); });
    auto searching = discogs.search(u"A"_s, {}, stopSource.get_token());
    auto fetching = discogs.details(u"1"_s, stopSource.get_token());
    ASSERT_TRUE(test::eventually([&] { return discogsServer.requests().size() == 2; }));
    stopSource.request_stop();
    EXPECT_TRUE(awaitError<CancellationError>(std::move(searching)));
    EXPECT_TRUE(awaitError<CancellationError>(std::move(fetching)));
    EXPECT_TRUE(test::eventually([&] { return discogsServer.openConnectionCount() == 0; }));
}

} // namespace tonearm
