// SPDX-License-Identifier: GPL-3.0-or-later
// How a chosen release fills in the job.
#include "helpers/Await.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ReleasePages.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Kind = WorkflowState::Kind;

namespace {

ReleaseInfo summary()
{
    ReleaseInfo result;
    result.id = u"a"_s;
    result.artist = u"The Artist"_s;
    result.title = u"The Album"_s;
    result.year = u"1999-05-12"_s;
    return result;
}

QStringList numbered(const QString &word, qsizetype count)
{
    QStringList texts;
    for (qsizetype number = 1; number <= count; ++number)
        texts.append(word + QString::number(number));
    return texts;
}

class ReleaseSelection : public testing::Test
{
protected:
    ReleaseSelection() { m_model.searchResults = {summary()}; }

    // Chapters whose titles the user has edited.
    void loadChapters(qsizetype count)
    {
        QList<ChapterInfo> chapters;
        for (const QString &title : numbered(u"Chapter "_s, count)) {
            ChapterInfo chapter;
            chapter.id = int(chapters.size());
            chapter.originalTitle = title;
            chapter.mappedTitle = u"Edited"_s;
            chapters.append(chapter);
        }
        m_model.chapters = chapters;
    }

    void select()
    {
        m_model.selectRelease(u"a"_s);
        EXPECT_EQ(m_model.loadingReleaseID.value(), u"a"_s);
        ASSERT_TRUE(eventually([this] { return !m_model.loadingReleaseID.value(); }));
    }

    QStringList titles()
    {
        QStringList result;
        for (const ChapterInfo &chapter : m_model.chapters.value())
            result.append(chapter.mappedTitle);
        return result;
    }

    ReleasePages m_pages;
    ModelFixture m_fixture{{.addresses = ModelFixture::servicesAt(m_pages.origin())}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(ReleaseSelection, TakesOverTheTitlesAndTheAlbum)
{
    m_pages.addTracks(u"a"_s, {u"Eins"_s, u"Zwei"_s});
    loadChapters(2);
    m_model.genre = u"Jazz"_s;
    m_model.discNumber = u"7"_s;
    m_model.isShowingSearchResults = true;
    select();
    EXPECT_EQ(titles(), (QStringList{u"Eins"_s, u"Zwei"_s}));
    EXPECT_EQ(m_model.artist.value(), u"The Artist"_s);
    EXPECT_EQ(m_model.albumTitle.value(), u"The Album"_s);
    EXPECT_EQ(m_model.albumYear.value(), u"1999"_s);
    EXPECT_EQ(m_model.genre.value(), u"Jazz"_s);
    EXPECT_EQ(m_model.discNumber.value(), u"7"_s);
    EXPECT_EQ(m_model.selectedRelease.value()->tracks.size(), 2);
    EXPECT_EQ(m_model.searchResults.value()[0].tracks.size(), 2);
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::awaitingUserMapping));
    EXPECT_EQ(m_model.progressMessage.value(), u"Mapped 2 titles onto the chapters."_s);
    EXPECT_FALSE(m_model.isShowingSearchResults.value());
    EXPECT_FALSE(m_model.tracklistMismatchNote());
}

TEST_F(ReleaseSelection, ResetsTheChaptersBeyondTheLastTrack)
{
    m_pages.addTracks(u"a"_s, numbered(u"Track "_s, 10));
    loadChapters(12);
    select();
    EXPECT_EQ(titles(), numbered(u"Track "_s, 10) + QStringList({u"Chapter 11"_s, u"Chapter 12"_s}));
    EXPECT_EQ(m_model.progressMessage.value(), u"Mapped 10 titles onto the chapters."_s);
    EXPECT_EQ(m_model.tracklistMismatchNote(), u"This release has 10 tracks but the file has 12 chapters. "
                                               u"The last 2 kept their original chapter titles."_s);
}

TEST_F(ReleaseSelection, IgnoresTheTracksBeyondTheLastChapter)
{
    m_pages.addTracks(u"a"_s, numbered(u"Track "_s, 3));
    loadChapters(1);
    select();
    EXPECT_EQ(titles(), QStringList{u"Track 1"_s});
    EXPECT_EQ(m_model.progressMessage.value(), u"Mapped 1 titles onto the chapters."_s);
    EXPECT_EQ(m_model.tracklistMismatchNote(), u"This release has 3 tracks but the file has 1 chapters. "
                                               u"The last 2 tracks were ignored."_s);
}

TEST_F(ReleaseSelection, ResetsEveryChapterWithoutATracklist)
{
    m_pages.addTracks(u"a"_s, {});
    loadChapters(2);
    select();
    EXPECT_EQ(titles(), numbered(u"Chapter "_s, 2));
    EXPECT_EQ(m_model.progressMessage.value(), u"That release has no tracklist. Enter titles by hand."_s);
    EXPECT_FALSE(m_model.tracklistMismatchNote());
}

TEST_F(ReleaseSelection, LeavesTheTitlesAloneWhenTheUserWantsThat)
{
    m_pages.addTracks(u"a"_s, {u"Eins"_s});
    m_fixture.settings().setAutoMapOnSelect(false);
    loadChapters(2);
    select();
    EXPECT_EQ(titles(), (QStringList{u"Edited"_s, u"Edited"_s}));
    EXPECT_EQ(m_model.progressMessage.value(), u"Mapped 1 titles onto the chapters."_s);
    EXPECT_EQ(m_model.tracklistMismatchNote(), u"This release has 1 tracks but the file has 2 chapters. "
                                               u"The last 1 kept their original chapter titles."_s);
}

TEST_F(ReleaseSelection, LeavesWhatTheReleaseDoesntSay)
{
    ReleaseInfo bare;
    bare.id = u"a"_s;
    m_pages.addTracks(u"a"_s, {u"Eins"_s});
    m_model.artist = u"Typed"_s;
    m_model.albumTitle = u"Typed too"_s;
    m_model.albumYear = u"1971"_s;
    for (const QString &year : {u"199?"_s, QString()}) {
        bare.year = year;
        m_model.searchResults = {bare};
        select();
    }
    EXPECT_EQ(m_model.artist.value(), u"Typed"_s);
    EXPECT_EQ(m_model.albumTitle.value(), u"Typed too"_s);
    EXPECT_EQ(m_model.albumYear.value(), u"1971"_s);
}

TEST_F(ReleaseSelection, TakesOverWhichDiscOfASetItIs)
{
    const auto choose = [this](qint64 position, qint64 count) {
        ReleaseInfo matched = summary();
        matched.tracks = {TrackInfo()};
        matched.matchedDiscPosition = position;
        matched.discCount = count;
        m_model.searchResults = {matched};
        select();
    };
    m_model.discNumber = u"7"_s;
    m_model.discTotal = u"9"_s;
    choose(1, 1);
    EXPECT_EQ(m_model.discNumber.value(), u"7"_s);
    EXPECT_EQ(m_model.discTotal.value(), u"9"_s);
    choose(2, 3);
    EXPECT_EQ(m_model.discNumber.value(), u"2"_s);
    EXPECT_EQ(m_model.discTotal.value(), u"3"_s);
    EXPECT_TRUE(m_pages.askedPaths().isEmpty());
}

TEST_F(ReleaseSelection, BlanksAChapterWhoseTrackHasNoTitle)
{
    m_pages.addTracks(u"a"_s, {QString()});
    loadChapters(1);
    select();
    EXPECT_EQ(titles(), QStringList{QString()});
    EXPECT_EQ(m_model.untitledChapters().size(), 1);
}

TEST_F(ReleaseSelection, TellsOfAFailureAndStaysOpen)
{
    m_pages.server().answer("/ws/2/release/a", LoopbackResponse::withStatus(404));
    loadChapters(1);
    m_model.isShowingSearchResults = true;
    select();
    EXPECT_EQ(m_model.currentState.value(), WorkflowState::error(u"MusicBrainz has no release with ID a."_s));
    ASSERT_TRUE(m_model.alert.value());
    EXPECT_EQ(m_model.alert.value()->title, u"Couldn't Load Tracklist"_s);
    EXPECT_EQ(m_model.alert.value()->message,
              u"MusicBrainz has no release with ID a.\n\nSearch again and pick a different release."_s);
    EXPECT_TRUE(m_model.isShowingSearchResults.value());
    EXPECT_EQ(titles(), QStringList{u"Edited"_s});
    EXPECT_EQ(m_model.artist.value(), QString());
    EXPECT_FALSE(m_model.selectedRelease.value());
}

TEST_F(ReleaseSelection, IsClearedByAnIdThatHasGone)
{
    m_model.selectedRelease = summary();
    m_model.selectRelease(u"gone"_s);
    EXPECT_FALSE(m_model.selectedRelease.value());
    EXPECT_FALSE(m_model.loadingReleaseID.value());
    m_model.selectedRelease = summary();
    m_model.selectRelease(std::nullopt);
    EXPECT_FALSE(m_model.selectedRelease.value());
    m_fixture.settle();
    EXPECT_TRUE(m_pages.askedPaths().isEmpty());
}

TEST_F(ReleaseSelection, CompletesAReleaseOfTheOtherServiceToo)
{
    ReleaseInfo found;
    found.id = u"7"_s;
    found.title = u"The Artist - The Album"_s;
    found.source = MetadataSource::discogs;
    m_model.searchResults = {found};
    ReleaseInfo full = found;
    full.title = u"The Album"_s;
    full.artist = u"Artist, The"_s;
    full.year = u"1998"_s;
    m_pages.addDetails(full, {u"Eins"_s});
    loadChapters(1);
    m_model.selectRelease(u"7"_s);
    ASSERT_TRUE(eventually([this] { return !m_model.loadingReleaseID.value(); }));
    EXPECT_EQ(m_model.albumTitle.value(), u"The Album"_s);
    EXPECT_EQ(m_model.artist.value(), u"Artist, The"_s);
    EXPECT_EQ(m_model.albumYear.value(), u"1998"_s);
    EXPECT_EQ(titles(), QStringList{u"Eins"_s});
}

TEST_F(ReleaseSelection, ThatComesBackLastCounts)
{
    ReleaseInfo other = summary();
    other.id = u"b"_s;
    m_model.searchResults = {summary(), other};
    m_pages.addTracks(u"b"_s, {u"Second"_s});
    LoopbackResponse late = LoopbackResponse::json(R"({"media": [{"tracks": [{"title": "First"}]}]})");
    m_pages.server().answer("/ws/2/release/a", late.after(std::chrono::milliseconds(300)));
    loadChapters(1);
    m_model.selectRelease(u"a"_s);
    m_model.selectRelease(u"b"_s);
    ASSERT_TRUE(eventually([this] { return titles() == QStringList{u"Second"_s}; }));
    ASSERT_TRUE(eventually([this] { return titles() == QStringList{u"First"_s}; }));
    EXPECT_EQ(m_model.selectedRelease.value()->id, u"a"_s);
}

TEST_F(ReleaseSelection, CanBeAppliedAgainByHand)
{
    m_pages.addTracks(u"a"_s, {u"Eins"_s});
    loadChapters(2);
    select();
    m_model.setMappedTitle(0, u"Typed"_s);
    m_model.applyTracklist(m_model.selectedRelease.value()->tracks);
    EXPECT_EQ(titles(), (QStringList{u"Eins"_s, u"Chapter 2"_s}));
    m_model.resetToSourceTitles();
    EXPECT_EQ(titles(), numbered(u"Chapter "_s, 2));
}

} // namespace tonearm
