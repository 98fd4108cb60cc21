// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/MusicBrainzService.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "metadata/Records.h"
#include "metadata/ServicesFixture.h"
#include "support/Cancellation.h"

namespace tonearm {

using namespace Qt::StringLiterals;
using test::await;
using test::awaitError;
using test::LoopbackResponse;
using test::musicBrainzSource;
using test::plain;
using test::track;
using Error = MetadataServiceError;

namespace {

class MusicBrainzServiceTest : public test::ServicesFixture
{
protected:
    // What the only request so far asked for.
    QByteArray target() const
    {
        const auto requests = musicBrainzServer.requests();
        return requests.size() == 1 ? requests.first().target : QByteArray::number(requests.size());
    }
};

} // namespace

TEST_F(MusicBrainzServiceTest, AsksForArtistAndAlbum)
{
    musicBrainzServer.answer("/ws/2/release", LoopbackResponse::json("{}"));
    await(musicBrainz.search(u" AC/DC "_s, u"Back \"in\" Black"_s, noStop));
    EXPECT_EQ(target(), "/ws/2/release?query=artist%3A%22AC%2FDC%22%20AND%20"
                        "release%3A%22Back%20%5C%22in%5C%22%20Black%22&fmt=json&limit=25");
}

TEST_F(MusicBrainzServiceTest, AsksInAnyScript)
{
    musicBrainzServer.answer("/ws/2/release", LoopbackResponse::json("{}"));
    await(musicBrainz.search(u"椎名"_s, u"أ+&"_s, noStop));
    EXPECT_EQ(target(), "/ws/2/release?query=artist%3A%22%E6%A4%8E%E5%90%8D%22%20AND%20"
                        "release%3A%22%D8%A3%2B%26%22&fmt=json&limit=25");
}

TEST_F(MusicBrainzServiceTest, KeepsASecondBetweenRequests)
{
    EXPECT_EQ(MusicBrainzService::minimumInterval, std::chrono::seconds(1));
}

TEST_F(MusicBrainzServiceTest, NamesTheProgramAndItsMakers)
{
    musicBrainzServer.answer("/ws/2/release", LoopbackResponse::json("{}"));
    await(musicBrainz.search(u"A"_s, {}, noStop));
    const auto requests = musicBrainzServer.requests();
    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests.first().method, "GET");
    EXPECT_EQ(requests.first().header("User-Agent"), fullUserAgent());
    EXPECT_EQ(requests.first().header("Accept"), "application/json");
    EXPECT_FALSE(requests.first().hasHeader("Authorization"));
}

TEST_F(MusicBrainzServiceTest, AsksNothingForBlankTexts)
{
    EXPECT_EQ(await(musicBrainz.search(u" \n"_s, u"\t"_s, noStop)), QList<ReleaseInfo>());
    EXPECT_EQ(musicBrainzServer.requests().size(), 0);
}

TEST_F(MusicBrainzServiceTest, FindsReleasesInTheServicesOrder)
{
    musicBrainzServer.answer("/ws/2/release", LoopbackResponse::json(R"({"releases": [
        {"id": "b", "title": "Later", "media": [{"discs": [{"id": "d"}], "tracks": [{"title": "One"}]}]},
        {"id": "a", "title": "Earlier"}]})"));
    const QList<ReleaseInfo> found = await(musicBrainz.search(u"A"_s, {}, noStop));
    EXPECT_EQ(
        found,
        (QList{
            ReleaseInfo{
                .id = u"b"_s, .title = u"Later"_s, .url = u"https://mb.example/release/b"_s, .discCount = 1},
            ReleaseInfo{.id = u"a"_s, .title = u"Earlier"_s, .url = u"https://mb.example/release/a"_s}}));
}

TEST_F(MusicBrainzServiceTest, FindsNothingInAnEmptyReply)
{
    for (const char *reply : {"{}", R"({"releases": []})", R"({"releases": null})"}) {
        musicBrainzServer.answer("/ws/2/release", LoopbackResponse::json(reply));
        EXPECT_EQ(await(musicBrainz.search(u"A"_s, {}, noStop)), QList<ReleaseInfo>()) << reply;
    }
}

TEST_F(MusicBrainzServiceTest, LooksUpADisc)
{
    musicBrainzServer.answer("/ws/2/discid/lw.8_k-", LoopbackResponse::json(R"({"releases": [
        {"id": "r", "media": [{"position": 1},
            {"position": 2, "discs": [{"id": "lw.8_k-"}], "tracks": [{"number": "1", "title": "Dusk"}]}]}]})"));
    const QList<ReleaseInfo> found = await(musicBrainz.lookUpDisc(u" lw.8_k-\n"_s, noStop));
    EXPECT_EQ(target(), "/ws/2/discid/lw.8_k-?inc=artists%2Blabels%2Brecordings&fmt=json");
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found.first().matchedDiscPosition, 2);
    EXPECT_EQ(plain(found.first().tracks), (QList{track(u"1"_s, u"Dusk"_s)}));
}

TEST_F(MusicBrainzServiceTest, KnowsNoReleaseForAnUnknownDisc)
{
    musicBrainzServer.answer("/ws/2/discid/d", LoopbackResponse::withStatus(404));
    EXPECT_EQ(await(musicBrainz.lookUpDisc(u"d"_s, noStop)), QList<ReleaseInfo>());
    EXPECT_EQ(musicBrainzServer.requests().size(), 1);
}

TEST_F(MusicBrainzServiceTest, RefusesABlankDisc)
{
    EXPECT_EQ(awaitError<Error>(musicBrainz.lookUpDisc(u" \n"_s, noStop)), Error::invalidQuery(u" \n"_s));
    EXPECT_EQ(musicBrainzServer.requests().size(), 0);
}

TEST_F(MusicBrainzServiceTest, FetchesTheTracksOfARelease)
{
    musicBrainzServer.answer("/ws/2/release/r%2F1", LoopbackResponse::json(R"({"media": [
        {"tracks": [{"number": "1", "title": "Dawn", "length": 61000}]},
        {"tracks": [{"number": "1", "recording": {"title": "Dusk"}}]}]})"));
    EXPECT_EQ(plain(await(musicBrainz.tracks(u" r/1 "_s, noStop))),
              (QList{track(u"1"_s, u"Dawn"_s, 61000), track(u"1"_s, u"Dusk"_s)}));
    EXPECT_EQ(target(), "/ws/2/release/r%2F1?inc=recordings&fmt=json");
}

TEST_F(MusicBrainzServiceTest, TellsThatAReleaseIsNotThere)
{
    EXPECT_EQ(awaitError<Error>(musicBrainz.tracks(u" gone "_s, noStop)),
              Error::releaseNotFound(musicBrainzSource, u"gone"_s));
}

TEST_F(MusicBrainzServiceTest, RefusesABlankRelease)
{
    EXPECT_EQ(awaitError<Error>(musicBrainz.tracks(u" "_s, noStop)), Error::invalidQuery(u" "_s));
    EXPECT_EQ(musicBrainzServer.requests().size(), 0);
}

TEST_F(MusicBrainzServiceTest, PassesFailuresOnWithoutAskingAgain)
{
    musicBrainzServer.answerWith([](const auto &) { return LoopbackResponse::withStatus(503); });
    EXPECT_EQ(awaitError<Error>(musicBrainz.search(u"A"_s, {}, noStop)),
              Error::rateLimited(musicBrainzSource));
    EXPECT_EQ(awaitError<Error>(musicBrainz.lookUpDisc(u"d"_s, noStop)),
              Error::rateLimited(musicBrainzSource));
    EXPECT_EQ(awaitError<Error>(musicBrainz.tracks(u"r"_s, noStop)), Error::rateLimited(musicBrainzSource));
    EXPECT_EQ(musicBrainzServer.requests().size(), 3);
}

TEST_F(MusicBrainzServiceTest, TakesOnlyADiscsAbsenceForAnAnswer)
{
    musicBrainzServer.answerWith([](const auto &) { return LoopbackResponse::withStatus(410); });
    EXPECT_EQ(awaitError<Error>(musicBrainz.lookUpDisc(u"d"_s, noStop)),
              Error::httpFailure(musicBrainzSource, 410));
    EXPECT_EQ(awaitError<Error>(musicBrainz.tracks(u"r"_s, noStop)),
              Error::httpFailure(musicBrainzSource, 410));
    musicBrainzServer.answerWith([](const auto &) { return LoopbackResponse::withStatus(404); });
    EXPECT_EQ(awaitError<Error>(musicBrainz.search(u"A"_s, {}, noStop)),
              Error::httpFailure(musicBrainzSource, 404));
}

TEST_F(MusicBrainzServiceTest, TellsWhereAReplyIsMalformed)
{
    musicBrainzServer.answerWith([](const auto &) {
        return LoopbackResponse::json(
            R"({"releases": [{"id": "r"}, {"id": 5}], "media": [{"tracks": [{"length": "long"}]}]})");
    });
    const Error wrongID =
        Error::malformedResponse(musicBrainzSource, u"Unexpected value at \"releases.Index 1.id\"."_s);
    EXPECT_EQ(awaitError<Error>(musicBrainz.search(u"A"_s, {}, noStop)), wrongID);
    EXPECT_EQ(awaitError<Error>(musicBrainz.lookUpDisc(u"d"_s, noStop)), wrongID);
    EXPECT_EQ(awaitError<Error>(musicBrainz.tracks(u"r"_s, noStop)),
              Error::malformedResponse(musicBrainzSource,
                                       u"Unexpected value at \"media.Index 0.tracks.Index 0.length\"."_s));
}

TEST_F(MusicBrainzServiceTest, StopsWhenAsked)
{
    musicBrainzServer.answerWith([](const auto &) { return LoopbackResponse::silence(); });
    auto searching = musicBrainz.search(u"A"_s, {}, stopSource.get_token());
    auto lookingUp = musicBrainz.lookUpDisc(u"d"_s, stopSource.get_token());
    auto fetching = musicBrainz.tracks(u"r"_s, stopSource.get_token());
    ASSERT_TRUE(test::eventually([&] { return musicBrainzServer.requests().size() == 3; }));
    stopSource.request_stop();
    EXPECT_TRUE(awaitError<CancellationError>(std::move(searching)));
    EXPECT_TRUE(awaitError<CancellationError>(std::move(lookingUp)));
    EXPECT_TRUE(awaitError<CancellationError>(std::move(fetching)));
    EXPECT_TRUE(test::eventually([&] { return musicBrainzServer.openConnectionCount() == 0; }));
}

TEST_F(MusicBrainzServiceTest, LetsCallsInWhileOneWaitsForItsReply)
{
    musicBrainzServer.answer("/ws/2/release/slow", LoopbackResponse::silence());
    musicBrainzServer.answer("/ws/2/release/fast", LoopbackResponse::json("{}"));
    auto waiting = musicBrainz.tracks(u"slow"_s, stopSource.get_token());
    EXPECT_EQ(await(musicBrainz.tracks(u"fast"_s, noStop)), QList<TrackInfo>());
    EXPECT_FALSE(waiting.isReady());
    stopSource.request_stop();
    EXPECT_TRUE(awaitError<CancellationError>(std::move(waiting)));
}

} // namespace tonearm
