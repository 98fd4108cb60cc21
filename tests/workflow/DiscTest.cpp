// SPDX-License-Identifier: GPL-3.0-or-later
// Audio CDs in the model: offered, loaded, looked up, gone.
#include "helpers/Await.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ReleasePages.h"
#include "helpers/ScriptedTools.h"
#include "workflow/Leftovers.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Kind = WorkflowState::Kind;

namespace {

DiscInfo disc(const QString &name, const QStringList &titles = {u"One"_s, u"Two"_s})
{
    DiscInfo result;
    result.volumeURL = QUrl::fromLocalFile(u"/media/"_s + name);
    result.volumeName = name;
    result.discID = u"disc-id-of-"_s + name;
    for (const QString &title : titles) {
        DiscTrack track;
        track.number = result.tracks.size() + 1;
        track.frameCount = 75 * 60;
        if (!title.isEmpty())
            track.title = title;
        result.tracks.append(track);
    }
    return result;
}

class Discs : public testing::Test
{
protected:
    void put(const QList<DiscInfo> &discs)
    {
        m_fixture.discScan().discs = discs;
        m_model.refreshDiscs();
        m_fixture.settle();
    }

    void lookUpAs(const QByteArray &reply)
    {
        m_pages.server().answer("/ws/2/discid/disc-id-of-A", LoopbackResponse::json(reply));
    }

    void load(const DiscInfo &which)
    {
        m_model.loadDisc(which);
        ASSERT_TRUE(eventually([this] { return !m_model.isLoadingReleases.value(); }));
    }

    ReleasePages m_pages;
    ModelFixture m_fixture{{.addresses = ModelFixture::servicesAt(m_pages.origin())}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(Discs, AreOfferedUntilOneIsLoaded)
{
    put({disc(u"A"_s), disc(u"B"_s)});
    EXPECT_EQ(m_model.detectedDiscs.value().size(), 2);
    EXPECT_TRUE(m_model.canEject());
    load(disc(u"A"_s));
    EXPECT_TRUE(m_model.detectedDiscs.value().isEmpty());
    put({disc(u"A"_s), disc(u"B"_s)});
    EXPECT_TRUE(m_model.detectedDiscs.value().isEmpty());
    put({disc(u"B"_s)});
    EXPECT_EQ(m_model.detectedDiscs.value(), QList{disc(u"B"_s)});
}

TEST_F(Discs, BecomeTheSourceWithTheirTracks)
{
    m_model.inputFileURL = m_fixture.url(u"a.mkv"_s);
    m_model.searchResults = {ReleaseInfo{.id = u"old"_s}};
    m_model.loadDisc(disc(u"A"_s));
    EXPECT_TRUE(m_model.isDiscSource());
    EXPECT_TRUE(m_model.hasSource());
    EXPECT_EQ(m_model.sourceName(), u"A"_s);
    EXPECT_FALSE(m_model.inputFileURL.value());
    EXPECT_EQ(m_model.chapters.value().size(), 2);
    EXPECT_EQ(m_model.sourceAudio.value()->summaryLine(), u"LPCM · 16-bit · 44.1 kHz · Stereo"_s);
    EXPECT_TRUE(m_model.searchResults.value().isEmpty());
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::readingDisc));
    EXPECT_EQ(m_model.statusText(), u"Reading the disc…"_s);
    EXPECT_EQ(m_model.progressMessage.value(), u"Found 2 tracks."_s);
    EXPECT_TRUE(m_model.isShowingSearchResults.value());
    EXPECT_TRUE(m_model.isLoadingReleases.value());
}

TEST_F(Discs, TakeTheOldSourcesThingsAway)
{
    test::fillLeftovers(m_model);
    m_model.searchNotices = {MetadataSearchOutcome::Notice()};
    m_model.loadDisc(disc(u"A"_s, {u"Only"_s}));
    test::expectNoLeftovers(m_model);
    EXPECT_TRUE(m_model.searchNotices.value().isEmpty());
    EXPECT_EQ(m_model.progressMessage.value(), u"Found 1 track."_s);
}

TEST_F(Discs, SweepAFinishedJobAwayCompletely)
{
    test::fillFinishedJob(m_model);
    m_model.loadDisc(disc(u"A"_s));
    test::expectNoFinishedJob(m_model);
    EXPECT_EQ(m_model.loadedDisc.value(), disc(u"A"_s));
}

TEST_F(Discs, LeaveWhatWasTypedBeforeAnyJob)
{
    test::fillFinishedJob(m_model);
    m_model.completion = std::nullopt;
    m_model.loadDisc(disc(u"A"_s));
    EXPECT_EQ(m_model.artist.value(), u"typed"_s);
    EXPECT_TRUE(m_model.coverArt.value());
}

TEST_F(Discs, AreLookedUpByTheirID)
{
    lookUpAs(R"({"releases": [{"id": "a", "title": "The Album", "media": [
        {"position": 1}, {"position": 2, "discs": [{"id": "disc-id-of-A"}],
         "tracks": [{"title": "Eins"}, {"title": "Zwei"}]}]}]})");
    load(disc(u"A"_s));
    EXPECT_EQ(m_model.progressMessage.value(), u"Matched 1 release exactly."_s);
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::awaitingUserMapping));
    EXPECT_TRUE(m_model.isShowingSearchResults.value());
    EXPECT_EQ(m_model.artist.value(), QString());
    m_model.selectRelease(u"a"_s);
    ASSERT_TRUE(eventually([this] { return !m_model.loadingReleaseID.value(); }));
    EXPECT_EQ(m_model.progressMessage.value(), u"Mapped 2 titles onto the CD tracks."_s);
    EXPECT_EQ(m_model.discNumber.value(), u"2"_s);
    EXPECT_EQ(m_model.discTotal.value(), u"2"_s);
    EXPECT_EQ(m_model.chapters.value()[1].mappedTitle, u"Zwei"_s);
}

TEST_F(Discs, AreCountedByTheirPressings)
{
    lookUpAs(R"({"releases": [{"id": "a"}, {"id": "b"}]})");
    load(disc(u"A"_s));
    EXPECT_EQ(m_model.progressMessage.value(), u"Matched 2 pressings of this disc."_s);
}

TEST_F(Discs, ThatNobodyKnowsKeepTheirTitles)
{
    load(disc(u"A"_s));
    EXPECT_EQ(m_model.progressMessage.value(),
              u"This disc isn't in MusicBrainz — using the titles on the disc."_s);
    load(disc(u"B"_s, {QString(), QString()}));
    EXPECT_EQ(m_model.progressMessage.value(),
              u"This disc isn't in MusicBrainz. Search by artist and album, or type the titles."_s);
    EXPECT_TRUE(m_model.isShowingSearchResults.value());
}

TEST_F(Discs, ThatWentDuringTheirLookupAreForgotten)
{
    LoopbackResponse late = LoopbackResponse::json(R"({"releases": [{"id": "a"}]})");
    m_pages.server().answer("/ws/2/discid/disc-id-of-A", late.after(std::chrono::milliseconds(200)));
    m_model.loadDisc(disc(u"A"_s));
    ASSERT_TRUE(eventually([this] { return !m_pages.askedPaths().isEmpty(); }));
    m_model.ejectDisc(disc(u"A"_s));
    ASSERT_TRUE(eventually([this] { return !m_model.isLoadingReleases.value(); }));
    EXPECT_TRUE(m_model.searchResults.value().isEmpty());
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::searchingMetadata));
}

TEST_F(Discs, ThatArePulledOutEmptyTheWindow)
{
    put({disc(u"A"_s)});
    load(disc(u"A"_s));
    put({});
    EXPECT_FALSE(m_model.loadedDisc.value());
    EXPECT_TRUE(m_model.chapters.value().isEmpty());
    EXPECT_FALSE(m_model.sourceAudio.value());
    EXPECT_EQ(m_model.currentState.value(), WorkflowState::error(u"The disc was ejected."_s));
    ASSERT_TRUE(m_model.alert.value());
    EXPECT_EQ(m_model.alert.value()->title, u"Disc Ejected"_s);
    EXPECT_EQ(m_model.alert.value()->message,
              u"The audio CD was removed, so there's nothing left to rip. Reinsert it to carry on."_s);
}

TEST_F(Discs, ThatAreEjectedHereLeaveTheirTitles)
{
    put({disc(u"A"_s)});
    load(disc(u"A"_s));
    m_model.ejectCurrentDisc();
    EXPECT_FALSE(m_model.loadedDisc.value());
    m_fixture.settle();
    EXPECT_EQ(m_fixture.ejector().ejected, QList{disc(u"A"_s).volumeURL});
    EXPECT_EQ(m_model.chapters.value().size(), 2);
    EXPECT_FALSE(m_model.alert.value());
    EXPECT_TRUE(m_model.detectedDiscs.value().isEmpty());
    EXPECT_FALSE(m_model.canEject());
}

TEST_F(Discs, ThatWontComeOutAreOfferedAgain)
{
    put({disc(u"A"_s)});
    m_fixture.ejector().refuses = true;
    m_model.ejectCurrentDisc();
    EXPECT_TRUE(m_model.detectedDiscs.value().isEmpty());
    EXPECT_TRUE(eventually([this] { return m_model.detectedDiscs.value().size() == 1; }));
    EXPECT_FALSE(m_model.alert.value());
}

TEST_F(Discs, OnOfferAreEjectedTheFirstFirst)
{
    put({disc(u"A"_s), disc(u"B"_s)});
    m_model.ejectCurrentDisc();
    EXPECT_EQ(m_model.detectedDiscs.value(), QList{disc(u"B"_s)});
    m_fixture.settle();
    EXPECT_EQ(m_fixture.ejector().ejected, QList{disc(u"A"_s).volumeURL});
    EXPECT_EQ(m_model.detectedDiscs.value(), QList{disc(u"B"_s)});
}

TEST_F(Discs, OnOfferAreEjectedEachByItself)
{
    put({disc(u"A"_s), disc(u"B"_s)});
    m_model.ejectDisc(disc(u"B"_s));
    m_fixture.settle();
    EXPECT_EQ(m_fixture.ejector().ejected, QList{disc(u"B"_s).volumeURL});
    EXPECT_EQ(m_model.detectedDiscs.value(), QList{disc(u"A"_s)});
    m_model.ejectCurrentDisc();
    m_fixture.settle();
    EXPECT_FALSE(m_model.canEject());
    m_model.ejectCurrentDisc();
    m_fixture.settle();
    EXPECT_EQ(m_fixture.ejector().ejected.size(), 2);
}

TEST_F(Discs, ThatLieBesideTheLoadedOneGoWithoutIt)
{
    put({disc(u"A"_s), disc(u"B"_s)});
    load(disc(u"A"_s));
    m_model.ejectDisc(disc(u"B"_s));
    m_fixture.settle();
    EXPECT_EQ(m_fixture.ejector().ejected, QList{disc(u"B"_s).volumeURL});
    EXPECT_EQ(m_model.loadedDisc.value(), disc(u"A"_s));
    EXPECT_EQ(m_model.chapters.value().size(), 2);
    EXPECT_FALSE(m_model.alert.value());
}

TEST_F(Discs, ThatWereLoadedAndWontComeOutAreOfferedAgain)
{
    put({disc(u"A"_s)});
    load(disc(u"A"_s));
    m_fixture.ejector().refuses = true;
    m_model.ejectCurrentDisc();
    EXPECT_FALSE(m_model.loadedDisc.value());
    EXPECT_TRUE(eventually([this] { return m_model.detectedDiscs.value().size() == 1; }));
    EXPECT_EQ(m_model.chapters.value().size(), 2);
    EXPECT_FALSE(m_model.alert.value());
}

TEST_F(Discs, ThatArePulledOutDuringTheirLookupEmptyTheWindow)
{
    LoopbackResponse late = LoopbackResponse::json(R"({"releases": [{"id": "a"}]})");
    m_pages.server().answer("/ws/2/discid/disc-id-of-A", late.after(std::chrono::milliseconds(200)));
    put({disc(u"A"_s)});
    m_model.loadDisc(disc(u"A"_s));
    ASSERT_TRUE(eventually([this] { return !m_pages.askedPaths().isEmpty(); }));
    m_fixture.discScan().discs = {};
    m_model.refreshDiscs();
    ASSERT_TRUE(eventually([this] { return !m_model.loadedDisc.value(); }));
    EXPECT_TRUE(m_model.isLoadingReleases.value());
    EXPECT_EQ(m_model.alert.value()->title, u"Disc Ejected"_s);
    ASSERT_TRUE(eventually([this] { return !m_model.isLoadingReleases.value(); }));
    EXPECT_TRUE(m_model.searchResults.value().isEmpty());
    EXPECT_EQ(m_model.currentState.value(), WorkflowState::error(u"The disc was ejected."_s));
}

TEST_F(Discs, AreEjectedByTheClearButtonIfTheUserWantsThat)
{
    m_fixture.settings().setEjectDiscAfterRipping(true);
    EXPECT_EQ(m_model.clearButtonTitle(), u"Clear"_s);
    put({disc(u"A"_s)});
    load(disc(u"A"_s));
    EXPECT_EQ(m_model.clearButtonTitle(), u"Eject"_s);
    m_model.clearOrEject();
    m_fixture.settle();
    EXPECT_EQ(m_fixture.ejector().ejected.size(), 1);
    EXPECT_FALSE(m_model.hasSource());
}

TEST_F(Discs, AreLookedForAfterTheInputsAreCleared)
{
    m_fixture.discScan().discs = {disc(u"A"_s)};
    m_model.clearInputs();
    m_fixture.settle();
    EXPECT_EQ(m_model.detectedDiscs.value().size(), 1);
}

TEST_F(Discs, AskBeforeTheyDiscardWork)
{
    load(disc(u"B"_s));
    m_model.setMappedTitle(0, u"Edited"_s);
    m_model.requestDisc(disc(u"A"_s));
    ASSERT_TRUE(m_model.pendingSourceChange.value());
    EXPECT_EQ(m_model.pendingSourceChange.value()->message(),
              u"Loading A will discard 1 edited title. Nothing has been encoded yet."_s);
    m_model.confirmPendingSourceChange();
    EXPECT_EQ(m_model.sourceName(), u"A"_s);
}

TEST_F(Discs, DifferFromAReleaseInTheirOwnWords)
{
    QStringList ten;
    for (int number = 1; number <= 10; ++number)
        ten.append(QString::number(number));
    load(disc(u"A"_s, ten));
    ReleaseInfo release;
    release.tracks = QList<TrackInfo>(12);
    m_model.selectedRelease = release;
    EXPECT_EQ(m_model.tracklistMismatchNote(),
              u"This release has 12 tracks but the disc has 10 tracks. The last 2 tracks were ignored."_s);
    release.tracks = QList<TrackInfo>(9);
    m_model.selectedRelease = release;
    EXPECT_EQ(
        m_model.tracklistMismatchNote(),
        u"This release has 9 tracks but the disc has 10 tracks. The last 1 kept their titles from the disc."_s);
}

TEST_F(Discs, AreReadSecurelyOnlyWithAllThatTakes)
{
    m_fixture.settings().setUseSecureCDRipping(true);
    DiscInfo readable = disc(u"A"_s);
    readable.rawDevice = QUrl::fromLocalFile(u"/dev/sr0"_s);
    EXPECT_FALSE(m_model.usesSecureRipping());
    m_model.loadedDisc = readable;
    EXPECT_TRUE(m_model.usesSecureRipping());
    m_fixture.settings().setUseSecureCDRipping(false);
    EXPECT_FALSE(m_model.usesSecureRipping());
    m_fixture.settings().setUseSecureCDRipping(true);
    m_model.loadedDisc = disc(u"A"_s);
    EXPECT_FALSE(m_model.usesSecureRipping());
}

TEST(SecureRipping, NeedsItsTool)
{
    ScriptedTools tools;
    ModelFixture fixture{{.tools = tools.location()}};
    fixture.settings().setUseSecureCDRipping(true);
    DiscInfo readable = disc(u"A"_s);
    readable.rawDevice = QUrl::fromLocalFile(u"/dev/sr0"_s);
    fixture->loadedDisc = readable;
    EXPECT_FALSE(fixture->usesSecureRipping());
    tools.add(u"cd-paranoia"_s, "exit 0");
    EXPECT_TRUE(fixture->usesSecureRipping());
}

} // namespace tonearm
