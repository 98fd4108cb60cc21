// SPDX-License-Identifier: GPL-3.0-or-later
// The search in the window's section on the album, and what it leaves in the window.
#include "e2e/ShownSheet.h"

#include "app/screens/elements/Spinner.h"
#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "helpers/ReleasePages.h"

#include <QApplication>
#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct ReleaseSearchSectionTest : testing::Test
{
    QPushButton &searchButton() { return window.button(u"Search"_s); }

    bool hasStarted() { return model.searchTask.value().has_value(); }

    void waitForSearch()
    {
        ASSERT_TRUE(eventually([this] { return !hasStarted(); }));
    }

    // Releases with titles for as many tracks.
    void choose(const QStringList &trackTitles)
    {
        ReleaseInfo release = foundRelease(u"a"_s, u"The Album"_s);
        release.tracks = tracksTitled(trackTitles);
        model.selectedRelease = release;
    }

    ReleasePages pages;
    ScriptedTools tools{{{0, 1, u"One"_s}, {1, 2, u"Two"_s}}};
    ModelFixture surroundings{
        {.tools = tools.location(), .addresses = ModelFixture::servicesAt(pages.origin())}};
    AppModel &model = surroundings.model();
    ShownWindow window{model};
    const QString reapply = u"Re-apply Tracklist"_s;
    const QString choosing = u"Choose Release…"_s;
};

} // namespace

TEST_F(ReleaseSearchSectionTest, StartsByReturnInTheArtistAndTheAlbum)
{
    for (const QString &name : {u"Artist"_s, u"Album Title"_s}) {
        window.fillIn(name, u"Text"_s);
        press(Qt::Key_Return);
        EXPECT_TRUE(hasStarted()) << name.toStdString();
        waitForSearch();
    }
}

TEST_F(ReleaseSearchSectionTest, DoesntStartByReturnInOtherFields)
{
    model.artist = u"The Artist"_s;
    for (const QString &name : {u"Year"_s, u"Disc"_s, u"Number of discs"_s, u"Genre"_s}) {
        window.fillIn(name, u"1"_s);
        press(Qt::Key_Return);
        EXPECT_FALSE(hasStarted()) << name.toStdString();
    }
}

TEST_F(ReleaseSearchSectionTest, StartsByTheShortcutFromAnywhere)
{
    model.artist = u"The Artist"_s;
    for (const QString &name : {u"Artist"_s, u"Year"_s}) {
        click(window.box(name));
        press(Qt::Key_Return, Qt::ControlModifier);
        EXPECT_TRUE(hasStarted()) << name.toStdString();
        waitForSearch();
    }
    window.button(u"Select Input File…"_s).setFocus();
    press(Qt::Key_Enter, Qt::ControlModifier);
    EXPECT_TRUE(hasStarted());
}

TEST_F(ReleaseSearchSectionTest, NeedsSomethingToSearchFor)
{
    EXPECT_FALSE(searchButton().isEnabled());
    window.fillIn(u"Artist"_s, u"  "_s);
    press(Qt::Key_Return);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(hasStarted());
    EXPECT_FALSE(searchButton().isEnabled());
    window.fillIn(u"Album Title"_s, u"The Album"_s);
    EXPECT_TRUE(searchButton().isEnabled());
    window.fillIn(u"Album Title"_s, QString());
    window.fillIn(u"Artist"_s, u"The Artist"_s);
    EXPECT_TRUE(searchButton().isEnabled());
}

TEST_F(ReleaseSearchSectionTest, ShowsASpinnerInPlaceOfTheWordWhileItRuns)
{
    pages.server().answer(ReleasePages::musicBrainzSearch, LoopbackResponse::silence());
    model.artist = u"The Artist"_s;
    auto &spinner = *searchButton().findChild<Spinner *>();
    const QSize size = searchButton().size();
    EXPECT_EQ(searchButton().text(), u"Search"_s);
    EXPECT_FALSE(spinner.isVisible());
    click(searchButton());
    EXPECT_EQ(searchButton().text(), QString()) << "its name stays";
    EXPECT_FALSE(searchButton().isEnabled());
    EXPECT_EQ(searchButton().size(), size);
    ASSERT_TRUE(spinner.isVisible());
    searchButton().grab();
    EXPECT_NEAR(spinner.geometry().center().x(), searchButton().rect().center().x(), 1);
    EXPECT_NEAR(spinner.geometry().center().y(), searchButton().rect().center().y(), 1);
    EXPECT_TRUE(window.shows<QLabel>(u"Searching MusicBrainz and Discogs…"_s));
    model.searchTask.value()->cancel();
    waitForSearch();
    EXPECT_EQ(searchButton().text(), u"Search"_s);
    EXPECT_TRUE(searchButton().isEnabled());
    EXPECT_FALSE(spinner.isVisible());
}

TEST_F(ReleaseSearchSectionTest, OpensTheSheetWithWhatItFound)
{
    pages.findAtMusicBrainz({foundRelease(u"a"_s, u"The Album"_s, 2)});
    window.fillIn(u"Artist"_s, u"The Artist"_s);
    press(Qt::Key_Return);
    ShownSheet sheet(window);
    EXPECT_EQ(sheet.rows(), QStringList{u"The Artist - The Album [MusicBrainz], 2 tracks"_s});
    EXPECT_TRUE(sheet.shows<QLabel>(u"1 match for The Artist"_s));
    EXPECT_EQ(sheet.highlightedRow(), 0);
}

TEST_F(ReleaseSearchSectionTest, StaysInTheWindowWithoutResults)
{
    window.fillIn(u"Artist"_s, u"The Artist"_s);
    press(Qt::Key_Return);
    waitForSearch();
    EXPECT_FALSE(ShownSheet::isOpen(window));
    EXPECT_TRUE(window.box(u"Artist"_s).hasFocus());
    EXPECT_FALSE(window.shows(choosing));
}

TEST_F(ReleaseSearchSectionTest, TellsWhichServiceFailed)
{
    const QString notice =
        u"Discogs is rate-limiting requests right now. Wait a few seconds and search again."_s;
    pages.server().answerInTurn(ReleasePages::discogsSearch,
                                {LoopbackResponse::withStatus(429), LoopbackResponse::silence()});
    window.fillIn(u"Artist"_s, u"The Artist"_s);
    press(Qt::Key_Return);
    waitForSearch();
    EXPECT_TRUE(window.shows<QLabel>(notice));
    press(Qt::Key_Return);
    EXPECT_FALSE(window.shows<QLabel>(notice)) << "the next search starts without";
}

TEST_F(ReleaseSearchSectionTest, SaysHowManyReleasesThereAreToChooseFrom)
{
    EXPECT_FALSE(window.shows(choosing));
    model.searchResults = {foundRelease(u"a"_s, u"A"_s)};
    EXPECT_TRUE(window.shows<QLabel>(u"1 release found — none chosen yet."_s));
    EXPECT_TRUE(window.shows(choosing));
    model.searchResults = {foundRelease(u"a"_s, u"A"_s), foundRelease(u"b"_s, u"B"_s)};
    EXPECT_TRUE(window.shows<QLabel>(u"2 releases found — none chosen yet."_s));
    model.searchResults = QList<ReleaseInfo>();
    EXPECT_FALSE(window.shows(choosing));
}

TEST_F(ReleaseSearchSectionTest, SaysWhichReleaseIsChosen)
{
    ReleaseInfo release = foundRelease(u"a"_s, u"A <b>& B"_s, 2);
    release.mediaFormat = u"CD"_s;
    model.searchResults = {release};
    model.selectedRelease = release;
    EXPECT_TRUE(window.shows<QLabel>(u"The Artist - A <b>& B [MusicBrainz]"_s));
    EXPECT_TRUE(window.shows<QLabel>(u"2 tracks · CD"_s));
    EXPECT_FALSE(window.shows<QLabel>(u"1 release found — none chosen yet."_s));
    release.mediaFormat = QString();
    release.trackCount = std::nullopt;
    model.selectedRelease = release;
    EXPECT_FALSE(window.shows<QLabel>(u"2 tracks · CD"_s));
    // The release outlives the results of a next search.
    model.searchResults = QList<ReleaseInfo>();
    EXPECT_TRUE(window.shows<QLabel>(u"The Artist - A <b>& B [MusicBrainz]"_s));
    EXPECT_TRUE(window.shows(choosing));
}

TEST_F(ReleaseSearchSectionTest, LeadsBackToTheSheet)
{
    model.searchResults = {foundRelease(u"a"_s, u"A"_s)};
    click(window.button(choosing));
    EXPECT_TRUE(model.isShowingSearchResults.value());
    EXPECT_EQ(ShownSheet(window).rows().size(), 1);
}

TEST_F(ReleaseSearchSectionTest, AppliesATracklistAgain)
{
    surroundings.loadFile(tools.source());
    EXPECT_FALSE(window.shows(reapply));
    choose({});
    EXPECT_FALSE(window.shows(reapply)) << "there is nothing to apply";
    choose({u"Eins"_s, u"Zwei"_s});
    EXPECT_EQ(window.button(reapply).toolTip(),
              u"Copy this release's track titles onto the chapters again"_s);
    EXPECT_EQ(window.titleBox(1).text(), u"One"_s);
    click(window.button(reapply));
    EXPECT_EQ(window.titleBox(1).text(), u"Eins"_s);
    EXPECT_EQ(window.titleBox(2).text(), u"Zwei"_s);
    click(window.button(u"Use Chapter Titles"_s));
    EXPECT_EQ(window.titleBox(2).text(), u"Two"_s);
}

TEST_F(ReleaseSearchSectionTest, LeavesTheTitlesAloneDuringAJob)
{
    tools.setEncoding(ScriptedTools::waiting("go") + "echo sound > \"$output\"");
    surroundings.prepareJob(tools.source());
    choose({u"Eins"_s, u"Zwei"_s});
    click(window.button(u"Encode to FLAC"_s));
    surroundings.waitForJobStart();
    EXPECT_FALSE(window.shows(reapply));
    EXPECT_FALSE(window.shows(u"Use Chapter Titles"_s));
    tools.release(u"go"_s);
    surroundings.waitForJobEnd();
    EXPECT_TRUE(window.shows(reapply));
}

TEST_F(ReleaseSearchSectionTest, TellsThatTheTracksArentTheChapters)
{
    surroundings.loadFile(tools.source());
    choose({u"Eins"_s, u"Zwei"_s, u"Drei"_s});
    EXPECT_TRUE(window.shows<QLabel>(
        u"This release has 3 tracks but the file has 2 chapters. The last 1 tracks were ignored."_s));
    choose({u"Eins"_s});
    const QString tooFew =
        u"This release has 1 tracks but the file has 2 chapters. The last 1 kept their original chapter titles."_s;
    EXPECT_TRUE(window.shows<QLabel>(tooFew));
    choose({u"Eins"_s, u"Zwei"_s});
    EXPECT_FALSE(window.shows<QLabel>(tooFew));
}

TEST_F(ReleaseSearchSectionTest, HasItsStopsInOrder)
{
    model.searchResults = {foundRelease(u"a"_s, u"A"_s)};
    model.searchNotices = {{MetadataSource::discogs, u"Something failed."_s, false}};
    model.artist = u"The Artist"_s;
    window.box(u"Genre"_s).setFocus();
    QStringList stops;
    for (int step = 0; step < 6; ++step) {
        stops.append(accessibleNameOf(*QApplication::focusWidget()));
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(stops, (QStringList{u"Genre"_s, u"Choose from the default genres"_s, u"Search"_s,
                                  u"Cover art drop area"_s, choosing, u"Use Chapter Titles"_s}));
}

} // namespace tonearm
