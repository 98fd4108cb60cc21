// SPDX-License-Identifier: GPL-3.0-or-later
// Section 1: where the source comes from and where the files go.
#include "e2e/ShownWindow.h"

#include "app/screens/elements/DropWell.h"
#include "app/screens/elements/Spinner.h"
#include "app/screens/mainwindow/FileSelectionSection.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"

#include <QDir>
#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct FileSelectionTest : ScriptedWindowTest
{
    DropWell &inputWell() { return window.find<DropWell>(u"Input file drop area"_s); }

    DropWell &outputWell() { return window.find<DropWell>(u"Output folder drop area"_s); }

    QString pathBeside(const QString &label) { return window.box(label).text(); }

    QUrl source = QUrl::fromLocalFile(tools.source());
};

} // namespace

TEST_F(FileSelectionTest, InvitesAtFirst)
{
    EXPECT_TRUE(window.shows<QLabel>(u"Source File"_s));
    EXPECT_EQ(inputWell().label(), u"Drag an .mkv file here"_s);
    EXPECT_EQ(outputWell().label(), u"No output folder"_s);
    EXPECT_TRUE(window.shows<QLabel>(u"Input File:"_s));
    EXPECT_EQ(pathBeside(u"Input File:"_s), u"Not selected"_s);
    EXPECT_TRUE(window.shows<QLabel>(u"Output Folder:"_s));
    EXPECT_EQ(pathBeside(u"Output Folder:"_s), u"Not selected"_s);
    EXPECT_FALSE(window.shows(u"Saving To:"_s));
    EXPECT_FALSE(window.shows(u"Reading chapters…"_s));
}

TEST_F(FileSelectionTest, HasTwoWellsSideBySide)
{
    EXPECT_EQ(inputWell().height(), 100);
    EXPECT_EQ(outputWell().height(), 100);
    EXPECT_NEAR(inputWell().width(), outputWell().width(), 1);
    EXPECT_LT(inputWell().x(), outputWell().mapTo(&window.window(), QPoint()).x());
}

TEST_F(FileSelectionTest, ShowsWhatIsChosen)
{
    model.inputFileURL = QUrl(u"file:///music/The%20Concert.mkv"_s);
    model.outputFolderURL = QUrl(u"file:///music/Albums/"_s);
    EXPECT_EQ(inputWell().label(), u"The Concert.mkv"_s);
    EXPECT_EQ(pathBeside(u"Input File:"_s), u"/music/The Concert.mkv"_s);
    EXPECT_EQ(outputWell().label(), u"Albums"_s);
    EXPECT_EQ(pathBeside(u"Output Folder:"_s), u"/music/Albums/"_s);
}

TEST_F(FileSelectionTest, ShowsTheFolderOfTheAlbum)
{
    model.outputFolderURL = QUrl(u"file:///music"_s);
    window.fillIn(u"Artist"_s, u"The Artist"_s);
    window.fillIn(u"Album Title"_s, u"The Album"_s);
    EXPECT_EQ(pathBeside(u"Saving To:"_s), u"The Artist/The Album"_s);
    surroundings.settings().setOrganizeIntoArtistAlbumFolders(false);
    EXPECT_FALSE(window.shows(u"Saving To:"_s));
}

TEST_F(FileSelectionTest, TakesAFileFromThePanel)
{
    click(window.button(u"Select Input File…"_s));
    ASSERT_TRUE(eventually([this] { return surroundings.panels().openCount() == 1; }));
    EXPECT_EQ(
        surroundings.panels().requests().first(),
        (OpenPanelRequest{u"Select Input File"_s, u"Choose"_s, OpenPanelRequest::Target::file, {u"mkv"_s}}));
    surroundings.panels().answer(source);
    window.waitFor(u"Song title for chapter 2"_s);
    EXPECT_EQ(model.inputFileURL.value(), source);
}

TEST_F(FileSelectionTest, TakesAFolderFromThePanel)
{
    click(window.button(u"Select Output Folder…"_s));
    ASSERT_TRUE(eventually([this] { return surroundings.panels().openCount() == 1; }));
    EXPECT_EQ(surroundings.panels().requests().first(),
              (OpenPanelRequest{u"Select Output Folder"_s, u"Choose"_s, OpenPanelRequest::Target::folder}));
    surroundings.panels().answer(QUrl(u"file:///music"_s));
    EXPECT_TRUE(eventually([this] { return pathBeside(u"Output Folder:"_s) == u"/music"_s; }));
}

TEST_F(FileSelectionTest, TakesNothingFromAPanelThatIsDismissed)
{
    click(window.button(u"Select Input File…"_s));
    click(window.button(u"Select Output Folder…"_s));
    ASSERT_TRUE(eventually([this] { return surroundings.panels().openCount() == 2; }));
    surroundings.panels().answer(std::nullopt);
    surroundings.settle();
    surroundings.panels().answer(std::nullopt);
    surroundings.settle();
    EXPECT_EQ(pathBeside(u"Input File:"_s), u"Not selected"_s);
    EXPECT_EQ(pathBeside(u"Output Folder:"_s), u"Not selected"_s);
    EXPECT_TRUE(window.dialogs().isEmpty());
}

TEST_F(FileSelectionTest, TakesADroppedFile)
{
    EXPECT_TRUE(drop(inputWell(), {source, QUrl(u"file:///music/other.mkv"_s)}));
    window.waitFor(u"Song title for chapter 2"_s);
    EXPECT_EQ(pathBeside(u"Input File:"_s), tools.source());
}

TEST_F(FileSelectionTest, RefusesADroppedFileOfAnotherKind)
{
    EXPECT_FALSE(drop(inputWell(), {QUrl(u"file:///music/Song.mp3"_s), source}));
    EXPECT_EQ(window.dialog().text(), u"Unsupported File"_s);
    EXPECT_EQ(window.dialog().informativeText(), u"\"Song.mp3\" isn't a Matroska (.mkv) file."_s);
    window.answer(u"OK"_s);
    window.waitUntilUndisturbed();
    EXPECT_EQ(pathBeside(u"Input File:"_s), u"Not selected"_s);
}

TEST_F(FileSelectionTest, TakesADroppedFolder)
{
    const QUrl folder = surroundings.url(u"albums"_s);
    ASSERT_TRUE(QDir().mkpath(folder.toLocalFile()));
    EXPECT_TRUE(drop(outputWell(), {folder}));
    EXPECT_EQ(model.outputFolderURL.value(), folder);
    EXPECT_EQ(outputWell().label(), u"albums"_s);
}

TEST_F(FileSelectionTest, RefusesWhatIsNoFolderAsTheOutputFolder)
{
    writeFile(surroundings.path(u"note.txt"_s), "note");
    EXPECT_FALSE(drop(outputWell(), {surroundings.url(u"note.txt"_s)}));
    EXPECT_FALSE(drop(outputWell(), {surroundings.url(u"nothing"_s)}));
    EXPECT_EQ(outputWell().label(), u"No output folder"_s);
    EXPECT_TRUE(window.dialogs().isEmpty());
}

TEST_F(FileSelectionTest, RefusesWhatLiesOnAnotherMachine)
{
    const QUrl elsewhere(u"https://example.org/concert.mkv"_s);
    EXPECT_FALSE(drop(inputWell(), {elsewhere, source}));
    EXPECT_FALSE(drop(outputWell(), {elsewhere}));
    EXPECT_EQ(inputWell().label(), u"Drag an .mkv file here"_s);
    EXPECT_EQ(outputWell().label(), u"No output folder"_s);
    EXPECT_TRUE(window.dialogs().isEmpty());
}

TEST_F(FileSelectionTest, ShowsThatChaptersAreBeingRead)
{
    tools.setProbe(ScriptedTools::waiting("go") + R"(cat "$here/reply.json")");
    drop(inputWell(), {source});
    auto *section = window.window().findChild<FileSelectionSection *>();
    const QLabel *label = named<QLabel>(*section, u"Reading chapters…"_s);
    ASSERT_TRUE(label);
    EXPECT_TRUE(label->parentWidget()->findChild<Spinner *>()->isTurning());
    tools.release(u"go"_s);
    window.waitFor(u"Song title for chapter 1"_s);
    EXPECT_FALSE(window.shows(u"Reading chapters…"_s));
}

TEST_F(FileSelectionTest, KeepsItsWidthWhateverThePath)
{
    model.inputFileURL = QUrl::fromLocalFile(u"/music/"_s + QString(250, u'x') + u"/<b>song</b>.mkv"_s);
    model.outputFolderURL = QUrl::fromLocalFile(u"/"_s + QString(250, u'y'));
    ShownWindow::settle();
    EXPECT_EQ(window.window().width(), 940);
    EXPECT_NEAR(inputWell().width(), outputWell().width(), 1);
    // The whole of it can be had, and isn't taken for markup.
    EXPECT_TRUE(window.box(u"Input File:"_s).toolTip().contains(u"/&lt;b&gt;song&lt;/b&gt;.mkv"_s));
}

TEST_F(FileSelectionTest, LetsAPathBeCopiedButNotChanged)
{
    model.outputFolderURL = QUrl(u"file:///music"_s);
    window.fillIn(u"Output Folder:"_s, u"other"_s);
    EXPECT_EQ(pathBeside(u"Output Folder:"_s), u"/music"_s);
    EXPECT_EQ(window.box(u"Output Folder:"_s).selectedText(), u"/music"_s);
}

} // namespace tonearm
