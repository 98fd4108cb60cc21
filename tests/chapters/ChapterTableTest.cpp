// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/chapters/ChapterTable.h"

#include "app/screens/chapters/ChapterRowView.h"
#include "chapters/ChapterRows.h"
#include "helpers/Printing.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QApplication>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

// A window with a table between two buttons. The buttons are made first and last, like the controls of
// the sections around it.
struct ChapterTableTest : testing::Test
{
    ChapterTableTest()
        : before(new QPushButton(u"Before"_s))
        , table(new ChapterTable)
        , after(new QPushButton(u"After"_s))
        , edited(table, &ChapterTable::songTitleEdited)
    {
        auto *column = new QVBoxLayout(&window);
        column->addWidget(before);
        column->addWidget(table, 1);
        column->addWidget(after);
        window.resize(800, 500);
    }

    void showRows(int count)
    {
        table->setRows(chapterRows(count));
        ASSERT_TRUE(showActive(window));
    }

    // Null where the row has no widget.
    QLineEdit *box(int number)
    {
        return named<QLineEdit>(window, u"Song title for chapter "_s + QString::number(number));
    }

    // Null where the row has no widget.
    QString titleOf(int number)
    {
        const QLineEdit *shown = box(number);
        return shown ? shown->text() : QString();
    }

    void focus(int number)
    {
        QLineEdit *wanted = box(number);
        ASSERT_TRUE(wanted) << number;
        click(*wanted);
        ASSERT_EQ(QApplication::focusWidget(), wanted);
    }

    // The number of the row that has the focus, counted from 1; 0 if none has.
    int focusedNumber() const
    {
        const QWidget *focused = QApplication::focusWidget();
        const auto *view = focused ? qobject_cast<ChapterRowView *>(focused->parentWidget()) : nullptr;
        return view ? view->index() + 1 : 0;
    }

    bool isInView(int number)
    {
        QLineEdit *wanted = box(number);
        return wanted && !wanted->visibleRegion().isEmpty() &&
               wanted->visibleRegion().boundingRect() == wanted->rect();
    }

    QAbstractScrollArea *list() const { return table->findChild<QAbstractScrollArea *>(); }

    QScrollBar *bar() const { return list()->verticalScrollBar(); }

    int rowHeight() const { return bar()->singleStep(); }

    void scrollTo(int number) const { bar()->setValue((number - 1) * rowHeight()); }

    QList<ChapterRowView *> views() const { return table->findChildren<ChapterRowView *>(); }

    // The rows as a screen reader walks them.
    QList<int> orderOfRows() const
    {
        QList<int> order;
        for (QObject *child : list()->viewport()->children())
            if (auto *view = qobject_cast<ChapterRowView *>(child); view && !view->isHidden())
                order.append(view->index());
        return order;
    }

    QWidget window;
    QPushButton *before;
    ChapterTable *table;
    QPushButton *after;
    QSignalSpy edited;
};

QList<ChapterTableRow> withSongTitle(QList<ChapterTableRow> rows, int index, const QString &title)
{
    rows[index].songTitle = title;
    return rows;
}

} // namespace

TEST_F(ChapterTableTest, ShowsItsRows)
{
    showRows(3);
    EXPECT_TRUE(named<QLabel>(*table, u"Source title 2"_s));
    EXPECT_TRUE(named<QLabel>(*table, u"0:02"_s));
    EXPECT_TRUE(named<QLabel>(*table, u"2"_s));
    ASSERT_TRUE(box(2));
    EXPECT_EQ(titleOf(2), u"Song 2"_s);
    EXPECT_EQ(box(2)->placeholderText(), u"Song title"_s);
    EXPECT_EQ(orderOfRows(), QList<int>({0, 1, 2}));
}

TEST_F(ChapterTableTest, HasAHeader)
{
    showRows(3);
    for (const QString &title : {u"#"_s, u"Chapter"_s, u"Length"_s, u"Song Title"_s})
        EXPECT_TRUE(named<QLabel>(*table, title)) << title.toStdString();
    table->setSourceTitleHeader(u"Track"_s);
    EXPECT_TRUE(named<QLabel>(*table, u"Track"_s));
    EXPECT_FALSE(named<QLabel>(*table, u"Chapter"_s));
}

TEST_F(ChapterTableTest, PutsItsHeaderAboveTheColumns)
{
    showRows(3);
    const auto leftOf = [&](QWidget *widget) { return widget->mapTo(&window, QPoint()).x(); };
    EXPECT_EQ(leftOf(named<QLabel>(*table, u"Chapter"_s)),
              leftOf(named<QLabel>(*table, u"Source title 1"_s)));
    EXPECT_EQ(leftOf(named<QLabel>(*table, u"Song Title"_s)), leftOf(box(1)));
}

TEST_F(ChapterTableTest, IsAGroupOfGroupsForScreenReaders)
{
    showRows(3);
    EXPECT_EQ(accessibleNameOf(*table), u"Song titles"_s);
    const auto *row = named<ChapterRowView>(*table, u"Chapter 2"_s);
    ASSERT_TRUE(row);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(views().first())->role(), QAccessible::Grouping);
    table->setAccessibleName(u"Track titles"_s);
    EXPECT_EQ(accessibleNameOf(*table), u"Track titles"_s);
}

TEST_F(ChapterTableTest, ShowsSevenPlaceholdersWithoutRows)
{
    showRows(0);
    EXPECT_EQ(orderOfRows(), QList<int>({0, 1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(allNamed<QLabel>(*table, u"—"_s).size(), 14);
    EXPECT_TRUE(named<QLabel>(*table, u"7"_s));
    EXPECT_FALSE(named<QLabel>(*table, u"8"_s));
    for (const QLineEdit *each : table->findChildren<QLineEdit *>())
        EXPECT_FALSE(each->isVisible());
}

TEST_F(ChapterTableTest, HidesPlaceholdersFromScreenReadersButNoRows)
{
    const auto isHidden = [this] {
        return QAccessible::queryAccessibleInterface(views().first())->state().invisible;
    };
    showRows(0);
    EXPECT_TRUE(isHidden());
    table->setRows(chapterRows(2));
    EXPECT_FALSE(isHidden());
    table->setRows({});
    EXPECT_TRUE(isHidden());
}

TEST_F(ChapterTableTest, IsNoTabStopWithoutRows)
{
    showRows(0);
    before->setFocus();
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), after);
}

TEST_F(ChapterTableTest, ReplacesPlaceholdersByRowsAndBack)
{
    showRows(0);
    table->setRows(chapterRows(2));
    EXPECT_EQ(orderOfRows(), QList<int>({0, 1}));
    EXPECT_TRUE(isInView(1));
    table->setRows({});
    EXPECT_EQ(orderOfRows().size(), 7);
    EXPECT_FALSE(box(1));
}

TEST_F(ChapterTableTest, MakesWidgetsOnlyForRowsThatCanBeSeen)
{
    showRows(999);
    EXPECT_LT(views().size(), 30);
    EXPECT_TRUE(box(1));
    EXPECT_FALSE(box(500));
    EXPECT_GT(bar()->maximum(), 900 * rowHeight());
}

TEST_F(ChapterTableTest, UsesItsWidgetsAgainWhenItScrolls)
{
    showRows(999);
    scrollTo(10);
    const qsizetype made = views().size();
    bar()->setValue(bar()->maximum());
    EXPECT_EQ(views().size(), made);
    EXPECT_TRUE(isInView(999));
    EXPECT_EQ(titleOf(999), u"Song 999"_s);
    EXPECT_TRUE(named<QLabel>(*table, u"Source title 999"_s));
    bar()->setValue(0);
    EXPECT_EQ(views().size(), made);
    EXPECT_EQ(titleOf(1), u"Song 1"_s);
}

TEST_F(ChapterTableTest, KeepsTheWidgetOfARowThatStaysInView)
{
    showRows(999);
    QLineEdit *fifth = box(5);
    scrollTo(4);
    EXPECT_EQ(box(5), fifth);
    scrollTo(2);
    EXPECT_EQ(box(5), fifth);
}

TEST_F(ChapterTableTest, ScrollsByTheWheel)
{
    showRows(999);
    turnWheel(*box(2), 1);
    EXPECT_EQ(bar()->value(), 3 * rowHeight());
}

TEST_F(ChapterTableTest, KeepsItsChildrenInTheOrderOfTheRows)
{
    showRows(999);
    for (const int number : {4, 2, 30, 29, 999, 995, 1, 500, 497}) {
        scrollTo(number);
        const QList<int> order = orderOfRows();
        EXPECT_TRUE(std::is_sorted(order.begin(), order.end())) << number;
        EXPECT_GE(order.size(), 5);
        EXPECT_TRUE(order.contains(std::min(number, 998) - 1)) << number;
    }
}

TEST_F(ChapterTableTest, HasItsHeaderBeforeItsRowsForScreenReaders)
{
    showRows(3);
    const QObjectList children = list()->children();
    EXPECT_LT(children.indexOf(named<QLabel>(*table, u"Chapter"_s)->parent()),
              children.indexOf(list()->viewport()));
}

TEST_F(ChapterTableTest, TellsWhatTheUserTypesAtEachKeystroke)
{
    showRows(3);
    focus(2);
    type(u"ab"_s);
    ASSERT_EQ(edited.size(), 2);
    EXPECT_EQ(edited[0], QVariantList({1, u"Song 2a"_s}));
    EXPECT_EQ(edited[1], QVariantList({1, u"Song 2ab"_s}));
}

TEST_F(ChapterTableTest, SaysNothingOfTitlesThatWereSet)
{
    showRows(3);
    table->setRows(withSongTitle(chapterRows(3), 1, u"Other"_s));
    EXPECT_EQ(titleOf(2), u"Other"_s);
    EXPECT_TRUE(edited.isEmpty());
}

TEST_F(ChapterTableTest, NeverRebuildsItsRowsWhileTheUserTypes)
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

TEST_F(ChapterTableTest, ShowsAnotherTitleWhereTheCursorIs)
{
    showRows(3);
    focus(2);
    box(2)->setCursorPosition(3);
    table->setRows(withSongTitle(chapterRows(3), 1, u"Something else"_s));
    EXPECT_EQ(titleOf(2), u"Something else"_s);
    EXPECT_EQ(box(2)->cursorPosition(), 3);
}

TEST_F(ChapterTableTest, ShowsTheBeginningOfALongTitle)
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

TEST_F(ChapterTableTest, KeepsTheRowThatIsTypedIntoWhileItIsScrolledAway)
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

TEST_F(ChapterTableTest, ComesBackToTheRowWhenAnInputMethodBeginsAWord)
{
    showRows(999);
    focus(3);
    scrollTo(800);
    QInputMethodEvent composing(u"k"_s, {});
    QApplication::sendEvent(QApplication::focusWidget(), &composing);
    EXPECT_TRUE(isInView(3));
    EXPECT_TRUE(edited.isEmpty());
}

TEST_F(ChapterTableTest, StaysWhereItIsAtAChordOfAnothersMaking)
{
    showRows(999);
    focus(3);
    scrollTo(800);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(isInView(801));
}

TEST_F(ChapterTableTest, SetsTitlesOfRowsOutOfViewToo)
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

TEST_F(ChapterTableTest, KeepsWhatWasTypedWhileItsOwnerSaysNothing)
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

TEST_F(ChapterTableTest, LetsGoOfTheRowThatLostTheFocus)
{
    showRows(999);
    focus(3);
    scrollTo(800);
    EXPECT_TRUE(box(3));
    focus(805);
    scrollTo(790);
    EXPECT_FALSE(box(3));
}

TEST_F(ChapterTableTest, ForgetsWhatCouldBeUndoneWithTheRow)
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

TEST_F(ChapterTableTest, IsWalkedThroughByTab)
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

TEST_F(ChapterTableTest, IsWalkedThroughByTabBeyondWhatIsInView)
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

TEST_F(ChapterTableTest, GoesToTheNextRowOnReturn)
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

TEST_F(ChapterTableTest, MovesByTheArrowAndPageKeys)
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

TEST_F(ChapterTableTest, GoesToItsEndsByControlHomeAndEnd)
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

TEST_F(ChapterTableTest, LeavesHomeAndEndToTheTextBox)
{
    showRows(999);
    focus(5);
    press(Qt::Key_Home);
    EXPECT_EQ(box(5)->cursorPosition(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(box(5)->cursorPosition(), 6);
    EXPECT_EQ(focusedNumber(), 5);
}

TEST_F(ChapterTableTest, FollowsAnotherSourceFromItsTop)
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

TEST_F(ChapterTableTest, KeepsTheFocusInARowThatAnotherSourceHasToo)
{
    showRows(20);
    focus(4);
    table->setRows(chapterRows(10));
    EXPECT_EQ(focusedNumber(), 4);
}

TEST_F(ChapterTableTest, GivesTheFocusToTheLastRowWhenItsOwnGoes)
{
    showRows(999);
    focus(1);
    press(Qt::Key_End, Qt::ControlModifier);
    table->setRows(chapterRows(10));
    EXPECT_EQ(focusedNumber(), 10);
    EXPECT_TRUE(isInView(10));
}

TEST_F(ChapterTableTest, GivesTheFocusAwayWhenAllRowsGo)
{
    showRows(20);
    focus(4);
    table->setRows({});
    EXPECT_EQ(QApplication::focusWidget(), after);
}

TEST_F(ChapterTableTest, StaysWhereItIsWhenItIsDisabled)
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

TEST_F(ChapterTableTest, KeepsItsRowsInPlaceWhenItIsResized)
{
    showRows(999);
    scrollTo(100);
    QLineEdit *third = box(103);
    window.resize(1200, 400);
    QApplication::processEvents();
    EXPECT_EQ(box(103), third);
    EXPECT_GT(third->width(), 700);
    EXPECT_TRUE(isInView(100));
    window.resize(1200, 900);
    QApplication::processEvents();
    EXPECT_TRUE(isInView(115));
}

TEST_F(ChapterTableTest, IsAtLeastAHundredAndFiftyHighBelowItsHeader)
{
    showRows(999);
    table->resize(table->minimumSizeHint());
    window.resize(window.minimumSizeHint());
    QApplication::processEvents();
    EXPECT_GE(list()->viewport()->height(), 150);
}

TEST_F(ChapterTableTest, GrowsWithTheFont)
{
    showRows(999);
    scrollTo(101);
    const int height = rowHeight();
    QFont large = window.font();
    large.setPointSizeF(2.5 * large.pointSizeF());
    window.setFont(large);
    QApplication::processEvents();
    EXPECT_GT(rowHeight(), height);
    ASSERT_TRUE(isInView(101)) << "the row at the top stays there";
    EXPECT_GE(box(101)->height(), QFontMetrics(large).height());
}

TEST_F(ChapterTableTest, IsMirroredWhereTheLayoutIs)
{
    window.setLayoutDirection(Qt::RightToLeft);
    showRows(3);
    EXPECT_LT(box(1)->mapTo(&window, QPoint()).x(),
              named<QLabel>(*table, u"Source title 1"_s)->mapTo(&window, QPoint()).x());
}

} // namespace tonearm
