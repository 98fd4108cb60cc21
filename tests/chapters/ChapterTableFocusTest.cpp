// SPDX-License-Identifier: GPL-3.0-or-later
// Where the keyboard goes.
#include "chapters/ShownChapterTable.h"

#include "helpers/Printing.h"

#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

using ChapterTableFocusTest = ShownChapterTable;

} // namespace

TEST_F(ChapterTableFocusTest, IsWalkedThroughByTab)
{
    showRows(3);
    before->setFocus();
    press(Qt::Key_Tab);
    EXPECT_EQ(focusedNumber(), 1);
    EXPECT_EQ(box(1)->selectedText(), u"Song 1"_s);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    EXPECT_EQ(focusedNumber(), 3);
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), after);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focusedNumber(), 3);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focusedNumber(), 1);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), before);
}

TEST_F(ChapterTableFocusTest, IsWalkedThroughByTabBeyondWhatIsInView)
{
    showRows(100);
    before->setFocus();
    for (int number = 1; number <= 100; ++number) {
        press(Qt::Key_Tab);
        ASSERT_EQ(focusedNumber(), number);
        ASSERT_TRUE(isInView(number)) << number;
    }
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), after);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focusedNumber(), 100);
}

TEST_F(ChapterTableFocusTest, GoesToTheNextRowOnReturn)
{
    showRows(100);
    focus(1);
    for (int number = 2; number <= 40; ++number) {
        press(Qt::Key_Return);
        ASSERT_EQ(focusedNumber(), number);
    }
    EXPECT_TRUE(isInView(40));
    type(u"typed over"_s);
    EXPECT_EQ(titleOf(40), u"typed over"_s);
}

TEST_F(ChapterTableFocusTest, MovesByTheArrowAndPageKeys)
{
    showRows(100);
    focus(5);
    press(Qt::Key_Down);
    EXPECT_EQ(focusedNumber(), 6);
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(focusedNumber(), 4);
    press(Qt::Key_PageDown);
    const int page = focusedNumber() - 4;
    EXPECT_GT(page, 3);
    press(Qt::Key_PageDown);
    EXPECT_EQ(focusedNumber(), 4 + 2 * page);
    EXPECT_TRUE(isInView(4 + 2 * page));
    press(Qt::Key_PageUp);
    EXPECT_EQ(focusedNumber(), 4 + page);
}

TEST_F(ChapterTableFocusTest, GoesToItsEndsByControlHomeAndEnd)
{
    showRows(999);
    const qsizetype made = views().size();
    focus(5);
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(focusedNumber(), 999);
    EXPECT_TRUE(isInView(999));
    press(Qt::Key_Down);
    EXPECT_EQ(focusedNumber(), 999);
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(focusedNumber(), 1);
    EXPECT_TRUE(isInView(1));
    EXPECT_LE(views().size(), made + 3);
}

TEST_F(ChapterTableFocusTest, LeavesHomeAndEndToTheTextBox)
{
    showRows(999);
    focus(5);
    press(Qt::Key_Home);
    EXPECT_EQ(box(5)->cursorPosition(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(box(5)->cursorPosition(), 6);
    EXPECT_EQ(focusedNumber(), 5);
}

TEST_F(ChapterTableFocusTest, FollowsAnotherSourceFromItsTop)
{
    showRows(999);
    scrollTo(500);
    QList<ChapterTableRow> other = chapterRows(40);
    other.first().sourceTitle = u"Opening"_s;
    table->setRows(other);
    EXPECT_EQ(bar()->value(), 0);
    EXPECT_TRUE(named<QLabel>(*table, u"Opening"_s));
    EXPECT_FALSE(box(500));
    EXPECT_EQ(titleOf(2), u"Song 2"_s);
}

TEST_F(ChapterTableFocusTest, KeepsTheFocusInARowThatAnotherSourceHasToo)
{
    showRows(20);
    focus(4);
    table->setRows(chapterRows(10));
    EXPECT_EQ(focusedNumber(), 4);
}

TEST_F(ChapterTableFocusTest, GivesTheFocusToTheLastRowWhenItsOwnGoes)
{
    showRows(999);
    focus(1);
    press(Qt::Key_End, Qt::ControlModifier);
    table->setRows(chapterRows(10));
    EXPECT_EQ(focusedNumber(), 10);
    EXPECT_TRUE(isInView(10));
}

TEST_F(ChapterTableFocusTest, GivesTheFocusAwayWhenAllRowsGo)
{
    showRows(20);
    focus(4);
    table->setRows({});
    EXPECT_EQ(QApplication::focusWidget(), after);
}

TEST_F(ChapterTableFocusTest, StaysWhereItIsWhenItIsDisabled)
{
    showRows(999);
    focus(3);
    table->setEnabled(false);
    EXPECT_EQ(focusedNumber(), 0);
    EXPECT_EQ(bar()->value(), 0);
    EXPECT_FALSE(box(3)->isEnabled());
    before->setFocus();
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), after);
}

} // namespace tonearm
