// SPDX-License-Identifier: GPL-3.0-or-later
// Section 3: the chapters and their song titles.
#include "e2e/ShownWindow.h"

#include "app/screens/chapters/ChapterTable.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"

#include <QAccessible>
#include <QLabel>
#include <QPointer>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct ChapterMappingTest : ScriptedWindowTest
{
    void showChapters(const QStringList &titles) { model.chapters = chaptersTitled(titles); }
};

QStringList mappedTitles(const AppModel &model)
{
    QStringList titles;
    for (const ChapterInfo &chapter : model.chapters.value())
        titles.append(chapter.mappedTitle);
    return titles;
}

} // namespace

TEST_F(ChapterMappingTest, CountsTheChaptersInItsHeading)
{
    EXPECT_TRUE(window.shows<QLabel>(u"Chapters & Song Titles"_s));
    showChapters({u"One"_s});
    EXPECT_TRUE(window.shows<QLabel>(u"Chapters & Song Titles — 1 chapter"_s));
    showChapters({u"One"_s, u"Two"_s, u"Three"_s});
    EXPECT_TRUE(window.shows<QLabel>(u"Chapters & Song Titles — 3 chapters"_s));
}

TEST_F(ChapterMappingTest, ExplainsWhatToDo)
{
    EXPECT_TRUE(window.shows<QLabel>(u"No chapters yet — choose an .mkv file, or insert an audio CD."_s));
    showChapters({u"One"_s});
    EXPECT_TRUE(window.shows<QLabel>(u"Song titles are used for both the FLAC tags and the filenames."_s));
}

TEST_F(ChapterMappingTest, HasATableWithAHeader)
{
    for (const QString &header : {u"#"_s, u"Chapter"_s, u"Length"_s, u"Song Title"_s})
        EXPECT_TRUE(window.shows<QLabel>(header)) << header.toStdString();
    EXPECT_GE(window.window().findChild<ChapterTable *>()->height(), 150);
}

TEST_F(ChapterMappingTest, ShowsSevenPlaceholdersWithoutChapters)
{
    EXPECT_EQ(window.find<QLabel>(u"7"_s).text(), u"7"_s);
    EXPECT_FALSE(window.shows(u"8"_s));
    EXPECT_FALSE(window.shows(u"Song title for chapter 1"_s));
}

TEST_F(ChapterMappingTest, ShowsTheSourcesTitlesBesideTheSongTitles)
{
    showChapters({u"Overture"_s, u"Finale"_s});
    model.setMappedTitle(1, u"The End"_s);
    EXPECT_TRUE(window.shows<QLabel>(u"Finale"_s));
    EXPECT_EQ(window.titleBox(2).text(), u"The End"_s);
    EXPECT_EQ(allNamed<QLabel>(window.window(), u"0:10"_s).size(), 2);
}

TEST_F(ChapterMappingTest, WritesWhatIsTypedToTheModel)
{
    showChapters({u"One"_s, u"Two"_s});
    window.fillIn(u"Song title for chapter 2"_s, u"Zwei"_s);
    EXPECT_EQ(mappedTitles(model), (QStringList{u"One"_s, u"Zwei"_s}));
    EXPECT_EQ(model.chapters.value()[1].originalTitle, u"Two"_s);
}

TEST_F(ChapterMappingTest, KeepsTheRowsWhileTheUserTypes)
{
    showChapters({u"One"_s, u"Two"_s});
    const QPointer<QLineEdit> first = &window.titleBox(1);
    const QPointer<QLineEdit> second = &window.titleBox(2);
    click(*second);
    press(Qt::Key_End);
    press(Qt::Key_Left);
    type(u"xyz"_s);
    EXPECT_EQ(mappedTitles(model).last(), u"Twxyzo"_s);
    EXPECT_EQ(first, &window.titleBox(1));
    EXPECT_EQ(second, &window.titleBox(2));
    EXPECT_TRUE(second->hasFocus());
    EXPECT_EQ(second->cursorPosition(), 5);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(mappedTitles(model).last(), u"Two"_s);
}

TEST_F(ChapterMappingTest, TakesTheTitleThatAnAssistiveToolFillsIn)
{
    showChapters({u"One"_s, u"Two"_s});
    QAccessible::queryAccessibleInterface(&window.titleBox(2))
        ->editableTextInterface()
        ->replaceText(0, 3, u"Zwei"_s);
    EXPECT_EQ(mappedTitles(model), (QStringList{u"One"_s, u"Zwei"_s}));
}

TEST_F(ChapterMappingTest, GoesBackToTheChapterTitles)
{
    showChapters({u"One"_s, u"Two"_s});
    window.fillIn(u"Song title for chapter 2"_s, u"Zwei"_s);
    QPushButton &reset = window.button(u"Use Chapter Titles"_s);
    EXPECT_EQ(reset.toolTip(), u"Replace the song titles with the file's own chapter titles"_s);
    click(reset);
    EXPECT_EQ(window.titleBox(2).text(), u"Two"_s);
    EXPECT_EQ(mappedTitles(model), (QStringList{u"One"_s, u"Two"_s}));
}

TEST_F(ChapterMappingTest, CantGoBackWhileAJobRuns)
{
    ASSERT_NO_FATAL_FAILURE(startHeldJob());
    EXPECT_FALSE(window.shows(u"Use Chapter Titles"_s));
    tools.release(u"go"_s);
    surroundings.waitForJobEnd();
    EXPECT_TRUE(window.shows(u"Use Chapter Titles"_s));
}

TEST_F(ChapterMappingTest, ShowsTheChaptersOfTheNextSource)
{
    surroundings.loadFile(tools.source());
    window.fillIn(u"Song title for chapter 1"_s, u"Eins"_s);
    writeFile(tools.path(u"reply.json"_s), ScriptedTools::replyFor({{0, 5, u"Solo"_s}}));
    surroundings.loadFile(tools.source());
    EXPECT_EQ(window.titleBox(1).text(), u"Solo"_s);
    EXPECT_FALSE(window.shows(u"Song title for chapter 2"_s));
}

} // namespace tonearm
