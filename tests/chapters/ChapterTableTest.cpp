// SPDX-License-Identifier: GPL-3.0-or-later
// What the table shows, and how it is laid out.
#include "chapters/ShownChapterTable.h"

#include "helpers/Printing.h"

#include <QAccessible>
#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

using ChapterTableTest = ShownChapterTable;

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
