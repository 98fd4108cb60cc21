// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Await.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ReleasePages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Kind = WorkflowState::Kind;

namespace {

ReleaseInfo release(const QString &id, const QString &year = {})
{
    ReleaseInfo result;
    result.id = id;
    result.artist = u"The Artist"_s;
    result.title = u"The Album"_s;
    result.year = year;
    return result;
}

class ReleaseSearch : public testing::Test
{
protected:
    void search()
    {
        m_model.startSearch();
        ASSERT_TRUE(m_model.searchTask.value());
        ASSERT_TRUE(eventually([this] { return !m_model.searchTask.value(); }));
    }

    void loadChapters(qsizetype count)
    {
        QList<ChapterInfo> chapters(count);
        for (qsizetype index = 0; index < count; ++index)
            chapters[index].id = int(index);
        m_model.chapters = chapters;
    }

    ReleasePages m_pages;
    ModelFixture m_fixture{{.addresses = ModelFixture::servicesAt(m_pages.origin())}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(ReleaseSearch, NeedsAnArtistOrAnAlbum)
{
    EXPECT_FALSE(m_model.canSearch());
    m_model.startSearch();
    EXPECT_FALSE(m_model.searchTask.value());
    m_model.artist = u" \n"_s;
    EXPECT_FALSE(m_model.canSearch());
    m_model.artist = u"The Artist"_s;
    EXPECT_TRUE(m_model.canSearch());
    m_model.artist = QString();
    m_model.albumTitle = u"The Album"_s;
    EXPECT_TRUE(m_model.canSearch());
}

TEST_F(ReleaseSearch, ClearsTheResultsOfTheOneBeforeAtOnce)
{
    m_model.artist = u"The Artist"_s;
    m_model.searchResults = {release(u"old"_s)};
    m_model.searchNotices = {{MetadataSource::discogs, u"old"_s, false}};
    m_model.selectedReleaseID = u"old"_s;
    m_model.selectedRelease = release(u"old"_s);
    m_model.startSearch();
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::searchingMetadata));
    EXPECT_EQ(m_model.statusText(), u"Searching MusicBrainz and Discogs…"_s);
    EXPECT_TRUE(m_model.searchResults.value().isEmpty());
    EXPECT_TRUE(m_model.searchNotices.value().isEmpty());
    EXPECT_FALSE(m_model.selectedReleaseID.value());
    EXPECT_EQ(m_model.selectedRelease.value(), release(u"old"_s));
    EXPECT_TRUE(m_model.isLoadingReleases.value());
    EXPECT_FALSE(m_model.canSearch());
}

TEST_F(ReleaseSearch, ShowsWhatBothServicesFound)
{
    m_pages.findAtMusicBrainz({release(u"a"_s, u"1998"_s), release(u"b"_s, u"1975"_s)});
    m_pages.findAtDiscogs({release(u"7"_s, u"1980"_s)});
    m_model.artist = u"The Artist"_s;
    search();
    QStringList ids;
    for (const ReleaseInfo &found : m_model.searchResults.value())
        ids.append(found.id);
    EXPECT_EQ(ids, (QStringList{u"b"_s, u"7"_s, u"a"_s}));
    EXPECT_TRUE(m_model.searchNotices.value().isEmpty());
    EXPECT_TRUE(m_model.isShowingSearchResults.value());
    EXPECT_FALSE(m_model.isLoadingReleases.value());
    EXPECT_EQ(m_model.progressMessage.value(), u"Found 3 releases."_s);
    EXPECT_FALSE(m_model.selectedRelease.value());
}

TEST_F(ReleaseSearch, SendsTheFieldsAsTheyStand)
{
    m_model.artist = u" A/B "_s;
    m_model.albumTitle = u"Back \"in\""_s;
    search();
    QList<QByteArray> targets;
    for (const LoopbackRequest &request : m_pages.server().requests())
        targets.append(request.target);
    EXPECT_THAT(targets,
                testing::UnorderedElementsAre(
                    "/ws/2/release?query=artist%3A%22A%2FB%22%20AND%20release%3A%22Back%20%5C%22in%5C%22%22"
                    "&fmt=json&limit=25",
                    "/database/search?artist=A%2FB&title=Back%20%22in%22&type=release&per_page=25"));
}

TEST_F(ReleaseSearch, CountsOneInTheSingular)
{
    m_pages.findAtMusicBrainz({release(u"a"_s)});
    m_model.artist = u"The Artist"_s;
    search();
    EXPECT_EQ(m_model.progressMessage.value(), u"Found 1 release."_s);
}

TEST_F(ReleaseSearch, LeavesTheSheetClosedWithoutResults)
{
    m_model.artist = u"The Artist"_s;
    search();
    EXPECT_FALSE(m_model.isShowingSearchResults.value());
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::idle));
    EXPECT_EQ(m_model.progressMessage.value(), u"No releases matched that artist and album."_s);

    loadChapters(1);
    search();
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::awaitingUserMapping));
}

TEST_F(ReleaseSearch, TellsWhichServiceFailed)
{
    m_pages.findAtMusicBrainz({release(u"a"_s)});
    m_pages.server().answer(ReleasePages::discogsSearch, LoopbackResponse::withStatus(429));
    m_model.artist = u"The Artist"_s;
    search();
    EXPECT_EQ(m_model.searchResults.value().size(), 1);
    ASSERT_EQ(m_model.searchNotices.value().size(), 1);
    EXPECT_EQ(m_model.searchNotices.value()[0].message,
              u"Discogs is rate-limiting requests right now. Wait a few seconds and search again."_s);
    EXPECT_FALSE(m_model.alert.value());
}

TEST_F(ReleaseSearch, KeepsItsResultsWhenAFileIsLoaded)
{
    m_pages.findAtMusicBrainz({release(u"a"_s)});
    m_model.artist = u"The Artist"_s;
    search();
    m_model.selectedReleaseID = u"a"_s;
    m_model.selectedRelease = release(u"a"_s);
    m_model.loadFile(m_fixture.url(u"none.mkv"_s));
    EXPECT_EQ(m_model.searchResults.value().size(), 1);
    EXPECT_FALSE(m_model.selectedReleaseID.value());
    EXPECT_FALSE(m_model.selectedRelease.value());
}

TEST_F(ReleaseSearch, GoesAwayWithTheInputs)
{
    m_pages.findAtMusicBrainz({release(u"a"_s)});
    m_pages.server().answer(ReleasePages::discogsSearch, LoopbackResponse::withStatus(500));
    m_model.artist = u"The Artist"_s;
    search();
    m_model.selectedRelease = release(u"a"_s);
    m_model.clearInputs();
    EXPECT_TRUE(m_model.searchResults.value().isEmpty());
    EXPECT_TRUE(m_model.searchNotices.value().isEmpty());
    EXPECT_FALSE(m_model.selectedRelease.value());
    EXPECT_FALSE(m_model.isShowingSearchResults.value());
}

TEST_F(ReleaseSearch, EndsWithTheModel)
{
    m_pages.server().answer(ReleasePages::musicBrainzSearch, LoopbackResponse::silence());
    m_model.artist = u"The Artist"_s;
    m_model.startSearch();
    ASSERT_TRUE(eventually([this] { return m_pages.askedPaths().size() == 2; }));
    m_fixture.dropModel();
    EXPECT_TRUE(eventually([this] { return m_pages.server().openConnectionCount() <= 1; }));
}

TEST_F(ReleaseSearch, ChangesNothingOnceItIsCancelled)
{
    m_pages.server().answer(ReleasePages::musicBrainzSearch, LoopbackResponse::silence());
    m_model.artist = u"The Artist"_s;
    m_model.startSearch();
    m_model.searchTask.value()->cancel();
    ASSERT_TRUE(eventually([this] { return !m_model.searchTask.value(); }));
    EXPECT_FALSE(m_model.isLoadingReleases.value());
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::searchingMetadata));
    EXPECT_EQ(m_model.progressMessage.value(), QString());
}

} // namespace tonearm
