// SPDX-License-Identifier: GPL-3.0-or-later
#include "editortable/ShownTable.h"
#include "helpers/Printing.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::artistColumn;
using test::nameColumn;
using namespace test;
using Field = EditableTagField;
using Key = RowComparator::Key;

namespace {

constexpr int discColumn = 7;

struct EditorSorting : testing::Test
{
    void walkToTitles(int column)
    {
        shown.header().setFocus();
        press(Qt::Key_Home);
        for (int step = 0; step < column; ++step)
            press(Qt::Key_Right);
    }

    ShownTable shown{{rowOf(u"a"_s, tagsWith(Field::artist, u"Z"_s)),
                      rowOf(u"b"_s, tagsWith(Field::artist, u"Y"_s)),
                      rowOf(u"c"_s, tagsWith(Field::artist, u"Z"_s))}};
};

} // namespace

TEST_F(EditorSorting, IsShownAtTheTitleOfItsFirstRule)
{
    EXPECT_TRUE(shown.header().isSortIndicatorShown());
    EXPECT_EQ(shown.header().sortIndicatorSection(), discColumn);
    EXPECT_EQ(shown.header().sortIndicatorOrder(), Qt::AscendingOrder);
    shown.model().setSortOrder({{Key::artist, Qt::DescendingOrder}});
    EXPECT_EQ(shown.header().sortIndicatorSection(), artistColumn);
    EXPECT_EQ(shown.header().sortIndicatorOrder(), Qt::DescendingOrder);
    shown.model().setSortOrder({});
    EXPECT_EQ(shown.header().sortIndicatorSection(), -1);
}

TEST_F(EditorSorting, GoesByTheClickedColumnAndThenAsBefore)
{
    shown.clickTitle(artistColumn);
    EXPECT_EQ(shown.names(), QStringList({u"b"_s, u"a"_s, u"c"_s}));
    EXPECT_EQ(
        shown.model().sortOrder.value(),
        QList<RowComparator>({{Key::artist}, {Key::discNumber}, {Key::trackPosition}, {Key::fileName}}));
    EXPECT_EQ(shown.header().sortIndicatorSection(), artistColumn);
    EXPECT_EQ(shown.header().sortIndicatorOrder(), Qt::AscendingOrder);
}

TEST_F(EditorSorting, TurnsRoundWithTheNextClick)
{
    shown.clickTitle(nameColumn);
    EXPECT_EQ(shown.names(), QStringList({u"a"_s, u"b"_s, u"c"_s}));
    shown.clickTitle(nameColumn);
    EXPECT_EQ(shown.names(), QStringList({u"c"_s, u"b"_s, u"a"_s}));
    EXPECT_EQ(shown.header().sortIndicatorOrder(), Qt::DescendingOrder);
    shown.clickTitle(nameColumn);
    EXPECT_EQ(shown.names(), QStringList({u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_EQ(shown.header().sortIndicatorOrder(), Qt::AscendingOrder);
}

TEST_F(EditorSorting, KeepsTheOrderOfEarlierClicksAmongEquals)
{
    shown.clickTitle(nameColumn);
    shown.clickTitle(nameColumn);
    shown.clickTitle(artistColumn);
    EXPECT_EQ(shown.names(), QStringList({u"b"_s, u"c"_s, u"a"_s}));
}

TEST_F(EditorSorting, GoesByWhatIsStoredWhateverEditsWait)
{
    shown.model().setSelection({rowOf(u"b"_s).url});
    shown.model().setValue(u"ZZ"_s, Field::artist);
    shown.clickTitle(artistColumn);
    EXPECT_EQ(shown.names(), QStringList({u"b"_s, u"a"_s, u"c"_s}));
}

TEST_F(EditorSorting, LeavesTheSelectionAndTheCurrentRowWithTheirFiles)
{
    shown.clickRow(1);
    shown.clickTitle(nameColumn);
    shown.clickTitle(nameColumn);
    shown.clickTitle(artistColumn);
    EXPECT_EQ(shown.selectedNames(), QStringList{u"b"_s});
    EXPECT_EQ(shown.highlightedNames(), QStringList{u"b"_s});
    EXPECT_EQ(shown.list().currentIndex().row(), 0);
    shown.list().setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(shown.selectedNames(), QStringList{u"c"_s});
}

TEST_F(EditorSorting, CanBeChosenByKeys)
{
    walkToTitles(artistColumn);
    EXPECT_EQ(accessibleNameOf(shown.header()), u"Sort by Artist"_s);
    press(Qt::Key_Space);
    EXPECT_EQ(shown.names(), QStringList({u"b"_s, u"a"_s, u"c"_s}));
    press(Qt::Key_Return);
    EXPECT_EQ(shown.names(), QStringList({u"a"_s, u"c"_s, u"b"_s}));
    EXPECT_EQ(shown.header().sortIndicatorOrder(), Qt::DescendingOrder);
    press(Qt::Key_End);
    press(Qt::Key_Right);
    EXPECT_EQ(accessibleNameOf(shown.header()), u"Sort by Disc Number"_s);
    press(Qt::Key_Left);
    EXPECT_EQ(accessibleNameOf(shown.header()), u"Sort by Genre"_s);
}

TEST_F(EditorSorting, IsOneTabAwayFromTheRows)
{
    shown.list().setFocus();
    press(Qt::Key_Tab);
    EXPECT_TRUE(shown.header().hasFocus());
}

} // namespace tonearm
