// SPDX-License-Identifier: GPL-3.0-or-later
// An audio CD in the window: offered, loaded, previewed, judged, given back.
#include "e2e/ShownSheet.h"
#include "e2e/discs/ShownDisc.h"

#include "app/screens/releases/ReleaseTexts.h"
#include "helpers/Printing.h"
#include "helpers/Rendering.h"

#include <gmock/gmock.h>

#include <QToolButton>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

TEST_F(DiscWindowTest, IsOfferedInARowOfItsOwn)
{
    put({shownDisc(u"A"_s), shownDisc(u"B"_s), shownDisc(u"C"_s)});
    for (const QString &name : {u"A"_s, u"B"_s, u"C"_s})
        EXPECT_TRUE(window.shows<QLabel>(u"Audio CD detected — "_s + name));
    EXPECT_EQ(allNamed<QLabel>(window.window(), u"2 tracks · 2:00"_s).size(), 3);
    EXPECT_EQ(allNamed<QPushButton>(window.window(), u"Load Disc"_s).size(), 3);
    EXPECT_EQ(allNamed<QPushButton>(window.window(), u"Eject"_s).size(), 3);
    EXPECT_TRUE(eventually([this] { return isOffered(window.window(), u"A"_s); }));
    EXPECT_NE(renderToPng(window.window(), u"window-discs"_s), QString());
}

TEST_F(DiscWindowTest, IsLoadedByItsButton)
{
    put({shownDisc(u"The Disc"_s)});
    click(window.button(u"Load Disc"_s));
    EXPECT_TRUE(eventually([this] { return model.isDiscSource(); }));
    EXPECT_FALSE(window.window().findChild<DiscBanner *>()->isShown());
}

TEST_F(DiscWindowTest, IsEjectedByItsButton)
{
    put({shownDisc(u"The Disc"_s)});
    click(window.button(u"Eject"_s));
    EXPECT_TRUE(eventually([this] { return surroundings.ejector().ejected.size() == 1; }));
}

TEST_F(DiscWindowTest, HasItsOwnWords)
{
    surroundings.settings().setEjectDiscAfterRipping(false);
    load();
    EXPECT_TRUE(window.shows<QLabel>(u"Tracks & Song Titles — 2 tracks"_s));
    EXPECT_TRUE(window.shows<QLabel>(u"Track"_s));
    EXPECT_TRUE(window.shows<QLabel>(u"Audio CD:"_s));
    EXPECT_FALSE(window.shows<QLabel>(u"Input File:"_s));
    EXPECT_EQ(window.button(u"Use Disc Titles"_s).toolTip(),
              u"Replace the song titles with the disc's own CD-Text titles"_s);
    EXPECT_TRUE(window.shows<QPushButton>(u"Clear"_s));
    surroundings.settings().setEjectDiscAfterRipping(true);
    EXPECT_EQ(window.button(u"Eject"_s).toolTip(), u"Eject the disc and clear the inputs"_s);
}

TEST_F(DiscWindowTest, HasItsOwnWordsInTheSheetToo)
{
    model.loadDisc(shownDisc(u"The Disc"_s));
    EXPECT_EQ(releaseSheetStatus(model), u"Matching this disc against MusicBrainz…"_s);
    EXPECT_EQ(releaseListPlaceholder(model), u"Looking up this disc in MusicBrainz…"_s);
    ASSERT_TRUE(eventually([this] { return !model.isLoadingReleases.value(); }));
    EXPECT_EQ(releaseListPlaceholder(model),
              u"This disc isn't in MusicBrainz. Close this and search by artist "
              u"and album, or type the titles in yourself."_s);
}

TEST_F(DiscWindowTest, ShowsItsOwnWordsInTheSheet)
{
    const QString matching = u"Matching this disc against MusicBrainz…"_s;
    const QString lookingUp = u"Looking up this disc in MusicBrainz…"_s;
    const QString unknown = u"This disc isn't in MusicBrainz. Close this and search by artist "
                            u"and album, or type the titles in yourself."_s;
    model.loadDisc(shownDisc(u"The Disc"_s));
    ASSERT_TRUE(eventually([this] { return !model.isLoadingReleases.value(); }));
    ShownSheet sheet(window);
    EXPECT_TRUE(sheet.shows<QLabel>(unknown));
    EXPECT_FALSE(sheet.shows<QLabel>(matching));
    EXPECT_FALSE(sheet.shows<QLabel>(lookingUp));
    model.isLoadingReleases = true;
    EXPECT_TRUE(sheet.shows<QLabel>(matching));
    EXPECT_TRUE(sheet.shows<QLabel>(lookingUp));
    EXPECT_FALSE(sheet.shows<QLabel>(unknown));
}

TEST_F(DiscWindowTest, HasTheWordsOfASearchInTheSheetAfterASearch)
{
    load();
    model.artist = u"artist"_s;
    model.startSearch();
    EXPECT_EQ(releaseSheetStatus(model), u"Searching…"_s);
    EXPECT_EQ(releaseListPlaceholder(model), QString());
    ASSERT_TRUE(eventually([this] { return !model.isLoadingReleases.value(); }));
    EXPECT_EQ(releaseSheetStatus(model), u"0 matches for artist"_s);
    EXPECT_EQ(releaseListPlaceholder(model), u"No releases matched. Try a different artist or album."_s);
    // Loaded once more, it is looked up again.
    ASSERT_NO_FATAL_FAILURE(load());
    EXPECT_THAT(releaseListPlaceholder(model).toStdString(), testing::StartsWith("This disc isn't in"));
}

TEST_F(DiscWindowTest, KeepsTheHintAboutAFileWhileSomethingIsMissing)
{
    surroundings.findTools();
    load();
    model.outputFolderURL = std::nullopt;
    EXPECT_TRUE(window.shows<QLabel>(u"Choose an .mkv file to begin."_s));
}

TEST_F(DiscWindowTest, ShowsHowFarEachTrackCanBeTrusted)
{
    load();
    model.trackVerifications =
        QMap<qint64, RipVerification>{{0, RipVerification::verified}, {1, RipVerification::mismatched}};
    ShownWindow::settle();
    EXPECT_EQ(window.find(u"Verified by re-read"_s).toolTip(),
              u"Read twice from the disc with identical results."_s);
    EXPECT_EQ(
        window.find(u"Reads disagreed"_s).toolTip(),
        u"The two reads of this track disagreed, so the disc may be damaged. The first read was encoded; "
        u"check this track by ear."_s);
    EXPECT_NE(renderToPng(window.window(), u"window-verified"_s), QString());

    EncodingCompletion completion;
    completion.fileCount = 2;
    model.completion = completion;
    EXPECT_TRUE(window.shows<QLabel>(u"Track 2 read differently the second time — worth checking by ear."_s));
    model.trackVerifications =
        QMap<qint64, RipVerification>{{0, RipVerification::verified}, {1, RipVerification::verified}};
    EXPECT_TRUE(window.shows<QLabel>(u"2 tracks verified by re-reading the disc."_s));
    model.trackVerifications =
        QMap<qint64, RipVerification>{{0, RipVerification::mismatched}, {1, RipVerification::mismatched}};
    EXPECT_TRUE(
        window.shows<QLabel>(u"Tracks 1, 2 read differently the second time — worth checking by ear."_s));
    model.trackVerifications = QMap<qint64, RipVerification>{{0, RipVerification::secure}};
    EXPECT_TRUE(window.shows<QLabel>(u"1 track read with error correction."_s));
}

TEST_F(DiscWindowTest, PreviewsATrackByItsButton)
{
    surroundings.findTools();
    load();
    auto &button = window.find<QToolButton>(u"Preview chapter 1"_s);
    EXPECT_EQ(button.toolTip(), u"Play the first 20 seconds of this chapter"_s);
    EXPECT_TRUE(button.isEnabled());
    model.previewingChapterID = 0;
    EXPECT_EQ(window.find<QToolButton>(u"Stop preview of chapter 1"_s).toolTip(), u"Stop"_s);
    click(window.find<QToolButton>(u"Stop preview of chapter 1"_s));
    EXPECT_FALSE(model.previewingChapterID.value());
}

} // namespace tonearm
