// SPDX-License-Identifier: GPL-3.0-or-later
// Titles that are typed, and titles that are set meanwhile.
#include "chapters/ShownChapterTable.h"

#include "helpers/Printing.h"

#include <QInputMethodEvent>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

using ChapterTableTypingTest = ShownChapterTable;

QList<ChapterTableRow> withSongTitle(QList<ChapterTableRow> rows, int index, const QString &title)
{
    rows[index].songTitle = title;
    return rows;
}

} // namespace

TEST_F(ChapterTableTypingTest, TellsWhatTheUserTypesAtEachKeystroke)
{
    showRows(3);
    focus(2);
    type(u"ab"_s);
    ASSERT_EQ(edited.size(), 2);
    EXPECT_EQ(edited[0], QVariantList({1, u"Song 2a"_s}));
    EXPECT_EQ(edited[1], QVariantList({1, u"Song 2ab"_s}));
}

TEST_F(ChapterTableTypingTest, SaysNothingOfTitlesThatWereSet)
{
    showRows(3);
    table->setRows(withSongTitle(chapterRows(3), 1, u"Other"_s));
    EXPECT_EQ(titleOf(2), u"Other"_s);
    EXPECT_TRUE(edited.isEmpty());
}

TEST_F(ChapterTableTypingTest, NeverRebuildsItsRowsWhileTheUserTypes)
{
    showRows(999);
    QObject::connect(table, &ChapterTable::songTitleEdited, table, [this](int index, const QString &title) {
        table->setRows(withSongTitle(chapterRows(999), index, title));
    });
    const QList<ChapterRowView *> all = views();
    focus(3);
    QLineEdit *third = box(3);
    press(Qt::Key_Home);
    type(u"The "_s);
    EXPECT_EQ(third->text(), u"The Song 3"_s);
    EXPECT_EQ(third->cursorPosition(), 4);
    EXPECT_EQ(box(3), third);
    EXPECT_EQ(views(), all);
    EXPECT_TRUE(third->isUndoAvailable());
    third->undo();
    EXPECT_EQ(third->text(), u"Song 3"_s);
    EXPECT_EQ(edited.last(), QVariantList({2, u"Song 3"_s}));
}

TEST_F(ChapterTableTypingTest, ShowsAnotherTitleWhereTheCursorIs)
{
    showRows(3);
    focus(2);
    box(2)->setCursorPosition(3);
    table->setRows(withSongTitle(chapterRows(3), 1, u"Something else"_s));
    EXPECT_EQ(titleOf(2), u"Something else"_s);
    EXPECT_EQ(box(2)->cursorPosition(), 3);
}

TEST_F(ChapterTableTypingTest, ShowsTheBeginningOfALongTitle)
{
    const QString title = u"A title that goes on "_s.repeated(20);
    table->setRows(withSongTitle(chapterRows(3), 1, title));
    ASSERT_TRUE(showActive(window));
    EXPECT_EQ(box(2)->cursorPosition(), 0);
    focus(2);
    press(Qt::Key_End);
    before->setFocus();
    table->setRows(withSongTitle(chapterRows(3), 1, title + u"and on"_s));
    EXPECT_EQ(box(2)->cursorPosition(), 0);
}

TEST_F(ChapterTableTypingTest, KeepsTheRowThatIsTypedIntoWhileItIsScrolledAway)
{
    showRows(999);
    focus(3);
    QLineEdit *third = box(3);
    type(u"x"_s);
    scrollTo(800);
    EXPECT_EQ(QApplication::focusWidget(), third);
    EXPECT_TRUE(third->visibleRegion().isEmpty());
    EXPECT_TRUE(third->isUndoAvailable());
    const QList<int> order = orderOfRows();
    EXPECT_EQ(order.first(), 2);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));

    type(u"y"_s);
    EXPECT_TRUE(isInView(3));
    EXPECT_EQ(third->text(), u"Song 3xy"_s);
    EXPECT_EQ(edited.last(), QVariantList({2, u"Song 3xy"_s}));
}

TEST_F(ChapterTableTypingTest, ComesBackToTheRowWhenAnInputMethodBeginsAWord)
{
    showRows(999);
    focus(3);
    scrollTo(800);
    QInputMethodEvent composing(u"k"_s, {});
    QApplication::sendEvent(QApplication::focusWidget(), &composing);
    EXPECT_TRUE(isInView(3));
    EXPECT_TRUE(edited.isEmpty());
}

TEST_F(ChapterTableTypingTest, StaysWhereItIsAtAChordOfAnothersMaking)
{
    showRows(999);
    focus(3);
    scrollTo(800);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(isInView(801));
}

TEST_F(ChapterTableTypingTest, SetsTitlesOfRowsOutOfViewToo)
{
    showRows(999);
    focus(3);
    QLineEdit *third = box(3);
    scrollTo(800);
    QList<ChapterTableRow> rows = chapterRows(999);
    rows[2].songTitle = u"Third"_s;
    rows[499].songTitle = u"Five hundredth"_s;
    table->setRows(rows);
    EXPECT_EQ(third->text(), u"Third"_s);
    scrollTo(500);
    EXPECT_EQ(titleOf(500), u"Five hundredth"_s);
}

TEST_F(ChapterTableTypingTest, KeepsWhatWasTypedWhileItsOwnerSaysNothing)
{
    showRows(999);
    focus(3);
    type(u"x"_s);
    before->setFocus();
    scrollTo(800);
    EXPECT_FALSE(box(3));
    scrollTo(1);
    EXPECT_EQ(titleOf(3), u"Song 3x"_s);
}

TEST_F(ChapterTableTypingTest, LetsGoOfTheRowThatLostTheFocus)
{
    showRows(999);
    focus(3);
    scrollTo(800);
    EXPECT_TRUE(box(3));
    focus(805);
    scrollTo(790);
    EXPECT_FALSE(box(3));
}

TEST_F(ChapterTableTypingTest, ForgetsWhatCouldBeUndoneWithTheRow)
{
    QList<ChapterTableRow> rows = chapterRows(999);
    for (ChapterTableRow &row : rows)
        row.songTitle = u"Same"_s;
    table->setRows(rows);
    ASSERT_TRUE(showActive(window));
    focus(1);
    press(Qt::Key_A, Qt::ControlModifier);
    type(u"S"_s);
    type(u"ame"_s);
    before->setFocus();
    scrollTo(500);
    for (const QLineEdit *each : table->findChildren<QLineEdit *>())
        EXPECT_FALSE(each->isUndoAvailable());
}

} // namespace tonearm
