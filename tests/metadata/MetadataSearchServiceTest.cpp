// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/MetadataSearchService.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "metadata/Records.h"
#include "metadata/ServicesFixture.h"
#include "support/Cancellation.h"

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::await;
using test::awaitError;
using test::discogsSource;
using test::idsOf;
using test::LoopbackResponse;
using test::musicBrainzSource;
using test::plain;
using test::track;
using Error = MetadataServiceError;

namespace {

using MetadataSearchServiceTest = test::ServicesFixture;

LoopbackResponse releases(int count)
{
    QByteArrayList entries;
    for (int number = 1; number <= count; ++number)
        entries.append(R"({"id": "m)" + QByteArray::number(number) + R"(", "title": "Blue )" +
                       QByteArray::number(number) + "\"}");
    return LoopbackResponse::json(R"({"releases": [)" + entries.join(',') + "]}");
}

LoopbackResponse releasesOfYears(const QByteArray &first, const QByteArray &second)
{
    return LoopbackResponse::json(R"({"releases": [{"id": "m1", "date": ")" + first +
                                  R"("}, {"id": "m2", "date": ")" + second + R"("}]})");
}

// The sources of an outcome's notices, and how each ends.
QList<std::pair<MetadataSource, QString>> endingsOf(const MetadataSearchOutcome &outcome)
{
    QList<std::pair<MetadataSource, QString>> endings;
    for (const auto &notice : outcome.notices)
        endings.append({notice.source, notice.message.section(u". "_s, -1)});
    return endings;
}

} // namespace

TEST_F(MetadataSearchServiceTest, MergesWhatBothServicesFind)
{
    musicBrainzServer.answer("/ws/2/release", releasesOfYears("1998", "1975"));
    discogsServer.answer("/database/search", LoopbackResponse::json(R"({"results": [
        {"id": 1, "year": 1998}, {"id": 2, "year": 1980}, {"id": 1, "year": 1981}]})"));
    const MetadataSearchOutcome outcome = await(search.search(u"Nina"_s, u"Blue"_s, noStop));
    EXPECT_EQ(idsOf(outcome.releases), (QStringList{u"m2"_s, u"2"_s, u"m1"_s, u"1"_s}));
    EXPECT_TRUE(outcome.notices.isEmpty());
}

TEST_F(MetadataSearchServiceTest, DropsPressingsThatAreAlike)
{
    musicBrainzServer.answer("/ws/2/release", LoopbackResponse::json(R"({"releases": [
        {"id": "a", "title": "Début", "label-info": [{"catalog-number": "X1"}]},
        {"id": "b", "title": "DEBUT", "label-info": [{"catalog-number": "x1"}]},
        {"id": "c", "title": "Début", "label-info": [{"catalog-number": "X2"}]}]})"));
    discogsServer.answer("/database/search", LoopbackResponse::json("{}"));
    const MetadataSearchOutcome outcome = await(search.search({}, u"Debut"_s, noStop));
    EXPECT_EQ(idsOf(outcome.releases), (QStringList{u"a"_s, u"c"_s}));
}

TEST_F(MetadataSearchServiceTest, PutsExactMatchesOfTheAlbumFirst)
{
    musicBrainzServer.answer("/ws/2/release", LoopbackResponse::json(R"({"releases": [
        {"id": "a", "title": "Album II", "date": "1960"}, {"id": "b", "title": "ALBUM", "date": "1998"}]})"));
    discogsServer.answer("/database/search", LoopbackResponse::json("{}"));
    const MetadataSearchOutcome outcome = await(search.search(u"Nina"_s, u" Álbum "_s, noStop));
    EXPECT_EQ(idsOf(outcome.releases), (QStringList{u"b"_s, u"a"_s}));
}

TEST_F(MetadataSearchServiceTest, AsksNothingForBlankTexts)
{
    EXPECT_EQ(await(search.search(u" "_s, u"\n"_s, noStop)), MetadataSearchOutcome());
    EXPECT_EQ(musicBrainzServer.requests().size() + discogsServer.requests().size(), 0);
}

TEST_F(MetadataSearchServiceTest, KeepsTheResultsOfOneServiceWhenTheOtherFails)
{
    musicBrainzServer.answer("/ws/2/release", releases(10));
    discogsServer.answer("/database/search", LoopbackResponse::withStatus(429));
    const MetadataSearchOutcome outcome = await(search.search(u"Nina"_s, {}, noStop));
    EXPECT_EQ(outcome.releases.size(), 10);
    EXPECT_EQ(endingsOf(outcome), (QList<std::pair<MetadataSource, QString>>{
                                      {discogsSource, u"Wait a few seconds and search again."_s}}));
}

TEST_F(MetadataSearchServiceTest, KeepsTheResultsOfTheSlowServiceWhenTheFastOneFails)
{
    musicBrainzServer.answer("/ws/2/release", LoopbackResponse::withStatus(401));
    discogsServer.answer("/database/search",
                         LoopbackResponse::json(R"({"results": [{"id": 1}]})").after(100ms));
    const MetadataSearchOutcome outcome = await(search.search(u"Nina"_s, {}, noStop));
    EXPECT_EQ(idsOf(outcome.releases), (QStringList{u"1"_s}));
    ASSERT_EQ(outcome.notices.size(), 1);
    EXPECT_EQ(outcome.notices.first().source, musicBrainzSource);
    EXPECT_TRUE(outcome.notices.first().isConfigurationIssue);
}

TEST_F(MetadataSearchServiceTest, TellsOfBothServicesWhenBothFail)
{
    musicBrainzServer.answer("/ws/2/release", LoopbackResponse::json("[]").after(50ms));
    discogsServer.answer("/database/search", LoopbackResponse::hangUp());
    const MetadataSearchOutcome outcome = await(search.search(u"Nina"_s, {}, noStop));
    EXPECT_TRUE(outcome.releases.isEmpty());
    EXPECT_EQ(endingsOf(outcome), (QList<std::pair<MetadataSource, QString>>{
                                      {musicBrainzSource, u"Try again shortly."_s},
                                      {discogsSource, u"Check your internet connection and try again."_s}}));
}

TEST_F(MetadataSearchServiceTest, TellsThatAServiceIsNotThere)
{
    ServiceAddresses elsewhere = addresses;
    {
        const test::LoopbackServer gone;
        elsewhere.musicBrainz = gone.origin();
    }
    MusicBrainzService absent(session, elsewhere, version, unlimited());
    discogsServer.answer("/database/search", LoopbackResponse::json(R"({"results": [{"id": 1}]})"));
    const MetadataSearchOutcome outcome =
        await(MetadataSearchService(absent, discogs).search(u"Nina"_s, {}, noStop));
    EXPECT_EQ(idsOf(outcome.releases), (QStringList{u"1"_s}));
    ASSERT_EQ(outcome.notices.size(), 1);
    EXPECT_TRUE(outcome.notices.first().message.startsWith(u"Couldn't reach MusicBrainz. "_s));
    EXPECT_FALSE(outcome.notices.first().isConfigurationIssue);
}

TEST_F(MetadataSearchServiceTest, AsksBothServicesAtTheSameTimeAndStopsBoth)
{
    musicBrainzServer.answerWith([](const auto &) { return LoopbackResponse::silence(); });
    discogsServer.answerWith([](const auto &) { return LoopbackResponse::silence(); });
    auto searching = search.search(u"Nina"_s, u"Blue"_s, stopSource.get_token());
    ASSERT_TRUE(test::eventually(
        [&] { return musicBrainzServer.requests().size() == 1 && discogsServer.requests().size() == 1; }));
    stopSource.request_stop();
    EXPECT_EQ(await(std::move(searching)), MetadataSearchOutcome());
    EXPECT_TRUE(test::eventually([&] {
        return musicBrainzServer.openConnectionCount() == 0 && discogsServer.openConnectionCount() == 0;
    }));
}

TEST_F(MetadataSearchServiceTest, StopsWhileItWaitsForItsTurn)
{
    musicBrainzServer.answer("/ws/2/release", releases(1));
    discogsServer.answer("/database/search", LoopbackResponse::json("{}"));
    MusicBrainzService slowMusicBrainz(session, addresses, version, RequestThrottle(1h));
    DiscogsService slowDiscogs(session, addresses, version, RequestThrottle(1h));
    MetadataSearchService slow(slowMusicBrainz, slowDiscogs);
    EXPECT_EQ(await(slow.search(u"Nina"_s, {}, noStop)).releases.size(), 1);
    auto searching = slow.search(u"Nina"_s, {}, stopSource.get_token());
    stopSource.request_stop();
    EXPECT_EQ(await(std::move(searching)), MetadataSearchOutcome());
    EXPECT_EQ(musicBrainzServer.requests().size(), 1);
    EXPECT_EQ(discogsServer.requests().size(), 1);
}

TEST_F(MetadataSearchServiceTest, AsksNoFasterThanTheServicesAllow)
{
    musicBrainzServer.answer("/ws/2/release", releases(1));
    discogsServer.answer("/database/search", LoopbackResponse::json("{}"));
    const auto start = std::chrono::steady_clock::now();
    MusicBrainzService limitedMusicBrainz(session, addresses, version);
    DiscogsService limitedDiscogs(session, addresses, version);
    auto firstAtDiscogs = limitedDiscogs.search(u"Nina"_s, {}, noStop);
    auto secondAtDiscogs = limitedDiscogs.search(u"Nina"_s, {}, noStop);
    await(limitedMusicBrainz.search(u"Nina"_s, {}, noStop));
    await(limitedMusicBrainz.search(u"Nina"_s, {}, noStop));
    await(std::move(firstAtDiscogs));
    await(std::move(secondAtDiscogs));
    ASSERT_EQ(musicBrainzServer.requests().size(), 2);
    ASSERT_EQ(discogsServer.requests().size(), 2);
    EXPECT_GE(musicBrainzServer.requests().last().arrival - start, 1s);
    EXPECT_GE(discogsServer.requests().last().arrival - start, 3s);
}

TEST_F(MetadataSearchServiceTest, ServesSearchesThatOverlap)
{
    musicBrainzServer.answer("/ws/2/release", releases(2).after(20ms));
    discogsServer.answer("/database/search",
                         LoopbackResponse::json(R"({"results": [{"id": 1}]})").after(10ms));
    std::vector<QCoro::Task<MetadataSearchOutcome>> searches;
    for (int count = 0; count < 5; ++count)
        searches.push_back(search.search(u"Nina"_s, u"Blue"_s, noStop));
    for (auto &each : searches)
        EXPECT_EQ(idsOf(await(std::move(each)).releases), (QStringList{u"m1"_s, u"m2"_s, u"1"_s}));
}

TEST_F(MetadataSearchServiceTest, LooksUpADiscAtMusicBrainzAlone)
{
    // Neither sorted nor without what is alike.
    musicBrainzServer.answer("/ws/2/discid/d", LoopbackResponse::json(R"({"releases": [
        {"id": "b", "date": "1998"}, {"id": "a", "date": "1998"}, {"id": "c", "date": "1975"}]})"));
    const MetadataSearchOutcome outcome = await(search.lookUpDisc(u"d"_s, noStop));
    EXPECT_EQ(idsOf(outcome.releases), (QStringList{u"b"_s, u"a"_s, u"c"_s}));
    EXPECT_TRUE(outcome.notices.isEmpty());
    EXPECT_EQ(discogsServer.requests().size(), 0);
}

TEST_F(MetadataSearchServiceTest, TellsThatTheLookupOfADiscFailed)
{
    musicBrainzServer.answer("/ws/2/discid/d", LoopbackResponse::withStatus(503));
    const MetadataSearchOutcome outcome = await(search.lookUpDisc(u"d"_s, noStop));
    EXPECT_TRUE(outcome.releases.isEmpty());
    EXPECT_EQ(endingsOf(outcome), (QList<std::pair<MetadataSource, QString>>{
                                      {musicBrainzSource, u"Wait a few seconds and search again."_s}}));
}

TEST_F(MetadataSearchServiceTest, TellsOfABlankDiscAsOfAnyFailure)
{
    const MetadataSearchOutcome outcome = await(search.lookUpDisc(u" "_s, noStop));
    EXPECT_EQ(outcome,
              (MetadataSearchOutcome{
                  .notices = {{.source = musicBrainzSource,
                               .message = u"\" \" couldn't be turned into a valid search request. Check "
                                          "the artist and album text for stray punctuation."_s}}}));
}

TEST_F(MetadataSearchServiceTest, FindsNothingForADiscWhenStopped)
{
    musicBrainzServer.answer("/ws/2/discid/d", LoopbackResponse::silence());
    auto lookingUp = search.lookUpDisc(u"d"_s, stopSource.get_token());
    ASSERT_TRUE(test::eventually([&] { return musicBrainzServer.requests().size() == 1; }));
    stopSource.request_stop();
    EXPECT_EQ(await(std::move(lookingUp)), MetadataSearchOutcome());
}

TEST_F(MetadataSearchServiceTest, LeavesAReleaseWithTracksAsItIs)
{
    const ReleaseInfo release{.id = u"1"_s, .source = discogsSource, .tracks = {track(u"1"_s, u"Dawn"_s)}};
    EXPECT_EQ(await(search.complete(release, noStop)), release);
    EXPECT_EQ(musicBrainzServer.requests().size() + discogsServer.requests().size(), 0);
}

TEST_F(MetadataSearchServiceTest, AddsTheTracksOfAMusicBrainzRelease)
{
    musicBrainzServer.answer("/ws/2/release/r",
                             LoopbackResponse::json(R"({"media": [{"tracks": [{"title": "Dawn"}]}]})"));
    const ReleaseInfo release{.id = u"r"_s, .artist = u"Nina"_s, .title = u"Blue"_s, .trackCount = 9};
    ReleaseInfo expected = release;
    expected.tracks = {track({}, u"Dawn"_s)};
    EXPECT_EQ(plain(await(search.complete(release, noStop))), expected);
    EXPECT_EQ(discogsServer.requests().size(), 0);
}

TEST_F(MetadataSearchServiceTest, FillsTheGapsOfADiscogsReleaseFromItsSummary)
{
    discogsServer.answer("/releases/5", LoopbackResponse::json(R"({"title": "Blue", "artists_sort": "Nina",
        "uri": "/release/5-x", "tracklist": [{"title": "Dawn"}]})"));
    const ReleaseInfo summary{.id = u"5"_s,
                              .title = u"Nina - Blue"_s,
                              .year = u"1998"_s,
                              .label = u"Verve"_s,
                              .country = u"NO"_s,
                              .mediaFormat = u"CD"_s,
                              .url = u"elsewhere"_s,
                              .source = discogsSource};
    EXPECT_EQ(plain(await(search.complete(summary, noStop))),
              (ReleaseInfo{.id = u"5"_s,
                           .artist = u"Nina"_s,
                           .title = u"Blue"_s,
                           .year = u"1998"_s,
                           .country = u"NO"_s,
                           .mediaFormat = u"CD"_s,
                           .url = u"https://dg.example/release/5-x"_s,
                           .source = discogsSource,
                           .tracks = {track({}, u"Dawn"_s)},
                           .trackCount = 1}));
    EXPECT_EQ(musicBrainzServer.requests().size(), 0);
}

TEST_F(MetadataSearchServiceTest, PassesOnWhyAReleaseCannotBeCompleted)
{
    EXPECT_EQ(awaitError<Error>(search.complete({.id = u"r"_s}, noStop)),
              Error::releaseNotFound(musicBrainzSource, u"r"_s));
    discogsServer.answer("/releases/5", LoopbackResponse::withStatus(500));
    EXPECT_EQ(awaitError<Error>(search.complete({.id = u"5"_s, .source = discogsSource}, noStop)),
              Error::httpFailure(discogsSource, 500));
}

TEST_F(MetadataSearchServiceTest, StopsCompletingWhenAsked)
{
    discogsServer.answer("/releases/5", LoopbackResponse::silence());
    auto completing = search.complete({.id = u"5"_s, .source = discogsSource}, stopSource.get_token());
    ASSERT_TRUE(test::eventually([&] { return discogsServer.requests().size() == 1; }));
    stopSource.request_stop();
    EXPECT_TRUE(awaitError<CancellationError>(std::move(completing)));
}

} // namespace tonearm
