// SPDX-License-Identifier: GPL-3.0-or-later
// How the user picks one of the releases that a search has found.
#include "e2e/ShownSheet.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "helpers/ReleasePages.h"

#include <QApplication>
#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct ReleaseChoiceTest : testing::Test
{
    ReleaseChoiceTest()
    {
        for (const QString &id : {u"a"_s, u"b"_s, u"c"_s})
            pages.addTracks(id, {id + u" one"_s, id + u" two"_s});
        model.chapters = chaptersTitled({u"1"_s, u"2"_s});
        model.searchResults = releases;
    }

    ShownSheet open()
    {
        model.isShowingSearchResults = true;
        return ShownSheet(window);
    }

    // That the release has come and its sheet has gone.
    void expectTaken(const QString &id)
    {
        ASSERT_TRUE(eventually([this] { return model.selectedRelease.value().has_value(); }));
        EXPECT_EQ(model.selectedRelease.value()->id, id);
        EXPECT_EQ(model.selectedReleaseID.value(), id);
        EXPECT_EQ(window.titleBox(2).text(), id + u" two"_s);
        EXPECT_FALSE(ShownSheet::isOpen(window));
        EXPECT_FALSE(model.isShowingSearchResults.value());
        window.waitUntilUndisturbed();
    }

    void expectNothingChosen()
    {
        surroundings.settle();
        EXPECT_FALSE(model.selectedReleaseID.value());
        EXPECT_FALSE(model.selectedRelease.value());
        EXPECT_FALSE(model.loadingReleaseID.value());
        EXPECT_TRUE(pages.askedPaths().isEmpty());
        EXPECT_EQ(window.titleBox(1).text(), u"1"_s);
    }

    ReleasePages pages;
    ModelFixture surroundings{{.addresses = ModelFixture::servicesAt(pages.origin())}};
    AppModel &model = surroundings.model();
    ShownWindow window{model};
    QList<ReleaseInfo> releases = {foundRelease(u"a"_s, u"A"_s), foundRelease(u"b"_s, u"B"_s),
                                   foundRelease(u"c"_s, u"C"_s)};
};

} // namespace

TEST_F(ReleaseChoiceTest, StartsAtTheFirstRelease)
{
    ShownSheet sheet = open();
    EXPECT_EQ(sheet.highlightedRow(), 0);
    EXPECT_TRUE(sheet.list().hasFocus());
    EXPECT_TRUE(sheet.button(u"Use This Release"_s).isEnabled());
    EXPECT_TRUE(sheet.button(u"Use This Release"_s).isDefault());
}

TEST_F(ReleaseChoiceTest, StartsAtTheReleaseThatWasChosenBefore)
{
    model.selectedReleaseID = u"c"_s;
    ShownSheet sheet = open();
    EXPECT_EQ(sheet.highlightedRow(), 2);
}

TEST_F(ReleaseChoiceTest, BringsTheReleaseThatWasChosenBeforeIntoView)
{
    QList<ReleaseInfo> many;
    for (int number = 0; number < 50; ++number)
        many.append(foundRelease(QString::number(number), u"Album"_s));
    model.searchResults = many;
    model.selectedReleaseID = u"45"_s;
    ShownSheet sheet = open();
    EXPECT_EQ(sheet.highlightedRow(), 45);
    EXPECT_TRUE(sheet.list().viewport()->rect().contains(sheet.placeOf(45)));
}

TEST_F(ReleaseChoiceTest, IsMadeByTheButton)
{
    ShownSheet sheet = open();
    sheet.clickRow(1);
    click(sheet.button(u"Use This Release"_s));
    expectTaken(u"b"_s);
}

TEST_F(ReleaseChoiceTest, IsMadeByADoubleClick)
{
    ShownSheet sheet = open();
    sheet.doubleClickRow(2);
    expectTaken(u"c"_s);
    EXPECT_EQ(pages.askedPaths(), QList<QByteArray>{"/ws/2/release/c"});
}

TEST_F(ReleaseChoiceTest, IsMadeByADoubleClickThatFirstTakesTheHighlightAway)
{
    ShownSheet sheet = open();
    sheet.clickRow(2);
    ASSERT_EQ(sheet.highlightedRow(), 2);
    sheet.doubleClickRow(2, Qt::ControlModifier);
    expectTaken(u"c"_s);
    EXPECT_EQ(pages.askedPaths(), QList<QByteArray>{"/ws/2/release/c"});
}

TEST_F(ReleaseChoiceTest, IsMadeByReturn)
{
    open();
    press(Qt::Key_Return);
    expectTaken(u"a"_s);
}

TEST_F(ReleaseChoiceTest, MovesByTheArrowKeys)
{
    ShownSheet sheet = open();
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(sheet.highlightedRow(), 2);
    press(Qt::Key_Down);
    EXPECT_EQ(sheet.highlightedRow(), 2);
    press(Qt::Key_Up);
    EXPECT_EQ(sheet.highlightedRow(), 1);
    press(Qt::Key_Home);
    EXPECT_EQ(sheet.highlightedRow(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(sheet.highlightedRow(), 2);
    press(Qt::Key_Up);
    press(Qt::Key_Enter);
    expectTaken(u"b"_s);
}

TEST_F(ReleaseChoiceTest, IsMadeFromTheResultsThatCameAfterTheSheet)
{
    model.searchResults = QList<ReleaseInfo>();
    model.isLoadingReleases = true;
    open();
    model.searchResults = releases;
    model.isLoadingReleases = false;
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    expectTaken(u"b"_s);
}

TEST_F(ReleaseChoiceTest, IsLeftByEscape)
{
    open();
    press(Qt::Key_Down);
    press(Qt::Key_Escape);
    EXPECT_FALSE(ShownSheet::isOpen(window));
    EXPECT_FALSE(model.isShowingSearchResults.value());
    expectNothingChosen();
}

TEST_F(ReleaseChoiceTest, IsLeftByTheButton)
{
    ShownSheet sheet = open();
    click(sheet.button(u"Cancel"_s));
    EXPECT_FALSE(ShownSheet::isOpen(window));
    EXPECT_FALSE(model.isShowingSearchResults.value());
    expectNothingChosen();
}

TEST_F(ReleaseChoiceTest, IsLeftByClosingTheSheet)
{
    ShownSheet sheet = open();
    sheet.sheet().close();
    EXPECT_FALSE(model.isShowingSearchResults.value());
    expectNothingChosen();
}

TEST_F(ReleaseChoiceTest, CanBeReturnedTo)
{
    open();
    press(Qt::Key_Down);
    press(Qt::Key_Escape);
    window.waitUntilUndisturbed();
    click(window.button(u"Choose Release…"_s));
    ShownSheet again(window);
    EXPECT_EQ(again.rows().size(), 3);
    EXPECT_EQ(again.highlightedRow(), 0) << "the sheet that was left is forgotten";
    press(Qt::Key_Return);
    expectTaken(u"a"_s);
    click(window.button(u"Choose Release…"_s));
    ShownSheet third(window);
    press(Qt::Key_End);
    press(Qt::Key_Return);
    ASSERT_TRUE(eventually([this] { return model.selectedRelease.value()->id == u"c"_s; }));
    expectTaken(u"c"_s);
}

TEST_F(ReleaseChoiceTest, LeavesNoSheetBehind)
{
    for (int time = 0; time < 3; ++time) {
        open();
        press(Qt::Key_Escape);
        window.waitUntilUndisturbed();
    }
    EXPECT_TRUE(
        eventually([this] { return window.window().findChildren<ReleaseResultsSheet *>().isEmpty(); }));
}

TEST_F(ReleaseChoiceTest, IsOffWithoutAHighlight)
{
    ShownSheet sheet = open();
    sheet.clickRow(0, Qt::ControlModifier);
    EXPECT_EQ(sheet.highlightedRow(), -1);
    EXPECT_FALSE(sheet.button(u"Use This Release"_s).isEnabled());
    press(Qt::Key_Return);
    expectNothingChosen();
    EXPECT_TRUE(ShownSheet::isOpen(window));
    sheet.clickRow(1);
    EXPECT_TRUE(sheet.button(u"Use This Release"_s).isEnabled());
}

TEST_F(ReleaseChoiceTest, IsOffWithoutResults)
{
    model.searchResults = QList<ReleaseInfo>();
    ShownSheet sheet = open();
    sheet.list().setFocus();
    press(Qt::Key_Return);
    expectNothingChosen();
}

TEST_F(ReleaseChoiceTest, LeavesReturnToTheButtonThatHasTheFocus)
{
    ShownSheet sheet = open();
    press(Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), &sheet.button(u"Cancel"_s));
    press(Qt::Key_Return);
    EXPECT_FALSE(ShownSheet::isOpen(window));
    expectNothingChosen();
}

TEST_F(ReleaseChoiceTest, GoesThroughTheSheetByTab)
{
    model.searchNotices = {{MetadataSource::discogs, u"Something failed."_s, false}};
    open();
    QStringList stops;
    for (int step = 0; step < 4; ++step) {
        stops.append(accessibleNameOf(*QApplication::focusWidget()));
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(stops, (QStringList{u"Releases"_s, u"Cancel"_s, u"Use This Release"_s, u"Releases"_s}));
}

TEST_F(ReleaseChoiceTest, IsMadeOnceWhileATracklistIsLoaded)
{
    pages.server().answer("/ws/2/release/a", LoopbackResponse::silence());
    ShownSheet sheet = open();
    press(Qt::Key_Return);
    ASSERT_TRUE(eventually([this] { return pages.askedPaths().size() == 1; }));
    EXPECT_EQ(model.loadingReleaseID.value(), u"a"_s);
    EXPECT_FALSE(sheet.button(u"Loading Tracklist…"_s).isEnabled());
    sheet.doubleClickRow(1);
    sheet.list().setFocus();
    press(Qt::Key_Return);
    surroundings.settle();
    EXPECT_EQ(pages.askedPaths().size(), 1);
    EXPECT_EQ(model.selectedReleaseID.value(), u"a"_s);
    EXPECT_EQ(sheet.highlightedRow(), 1) << "it may be looked at meanwhile";
    EXPECT_TRUE(sheet.button(u"Cancel"_s).isEnabled());
}

TEST_F(ReleaseChoiceTest, StaysPossibleWhenATracklistCantBeLoaded)
{
    pages.server().answer("/ws/2/release/a", LoopbackResponse::withStatus(500));
    ShownSheet sheet = open();
    press(Qt::Key_Return);
    EXPECT_EQ(window.dialog().text(), u"Couldn't Load Tracklist"_s);
    EXPECT_EQ(
        window.dialog().informativeText(),
        u"MusicBrainz returned HTTP status 500.\n\nThe service may be having trouble. Try again shortly."_s);
    EXPECT_TRUE(ShownSheet::isOpen(window));
    EXPECT_TRUE(model.isShowingSearchResults.value());
    window.answer(u"OK"_s);
    ASSERT_TRUE(eventually([this] { return window.dialogs().isEmpty(); }));
    sheet.sheet().activateWindow();
    ShownSheet again(window);
    EXPECT_EQ(again.highlightedRow(), 0);
    EXPECT_TRUE(again.button(u"Use This Release"_s).isEnabled());
    EXPECT_EQ(window.titleBox(1).text(), u"1"_s);
    again.clickRow(1);
    click(again.button(u"Use This Release"_s));
    expectTaken(u"b"_s);
}

TEST_F(ReleaseChoiceTest, IsTakenOverAlsoWhenTheSheetWasLeftMeanwhile)
{
    open();
    press(Qt::Key_Return);
    press(Qt::Key_Escape);
    EXPECT_FALSE(ShownSheet::isOpen(window));
    EXPECT_EQ(model.loadingReleaseID.value(), u"a"_s);
    expectTaken(u"a"_s);
}

TEST_F(ReleaseChoiceTest, WaitsForATracklistAlsoInASheetThatWasReturnedTo)
{
    pages.server().answer("/ws/2/release/a", LoopbackResponse::silence());
    open();
    press(Qt::Key_Return);
    press(Qt::Key_Escape);
    click(window.button(u"Choose Release…"_s));
    ShownSheet again(window);
    EXPECT_FALSE(again.button(u"Loading Tracklist…"_s).isEnabled());
}

TEST_F(ReleaseChoiceTest, EndsWithTheWindow)
{
    auto other = std::make_unique<ShownWindow>(model);
    model.isShowingSearchResults = true;
    ASSERT_TRUE(ShownSheet::isOpen(*other));
    other.reset();
    EXPECT_TRUE(model.isShowingSearchResults.value());
}

} // namespace tonearm
