// SPDX-License-Identifier: GPL-3.0-or-later
// The selection of the table and the model's stay one and the same.
#include "editortable/ShownTable.h"
#include "helpers/Printing.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Key = RowComparator::Key;

namespace {

struct EditorTableSelection : testing::Test
{
    EditorTableSelection()
    {
        shown.model().setSelection({});
        shown.list().setFocus();
    }

    void expectSelected(const QStringList &names)
    {
        EXPECT_EQ(shown.selectedNames(), names);
        EXPECT_EQ(shown.highlightedNames(), names);
    }

    void select(const QStringList &names) { shown.fixture().select(names); }

    ShownTable shown{{rowOf(u"a"_s), rowOf(u"b"_s), unreadableRow(u"c"_s), rowOf(u"d"_s), rowOf(u"e"_s)}};
};

} // namespace

TEST_F(EditorTableSelection, FollowsClicks)
{
    shown.clickRow(1);
    expectSelected({u"b"_s});
    shown.clickRow(3, Qt::ControlModifier);
    expectSelected({u"b"_s, u"d"_s});
    shown.clickRow(1, Qt::ControlModifier);
    expectSelected({u"d"_s});
    shown.clickRow(4);
    expectSelected({u"e"_s});
}

TEST_F(EditorTableSelection, LeavesUnreadableRowsOutOfARange)
{
    shown.clickRow(1);
    shown.clickRow(4, Qt::ShiftModifier);
    expectSelected({u"b"_s, u"d"_s, u"e"_s});
}

TEST_F(EditorTableSelection, OfAllTakesEveryReadableRow)
{
    press(Qt::Key_A, Qt::ControlModifier);
    expectSelected({u"a"_s, u"b"_s, u"d"_s, u"e"_s});
}

TEST_F(EditorTableSelection, DoesNotTakeAnUnreadableRow)
{
    shown.clickRow(1);
    shown.clickRow(2, Qt::ControlModifier);
    expectSelected({u"b"_s});
    shown.clickRow(2);
    expectSelected({});
    EXPECT_EQ(shown.list().currentIndex().row(), 2);
}

TEST_F(EditorTableSelection, FollowsTheKeys)
{
    press(Qt::Key_Down);
    expectSelected({u"b"_s});
    press(Qt::Key_Home);
    expectSelected({u"a"_s});
    press(Qt::Key_Down);
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    expectSelected({u"b"_s, u"d"_s});
    press(Qt::Key_End);
    expectSelected({u"e"_s});
    press(Qt::Key_Up, Qt::ControlModifier);
    press(Qt::Key_Space, Qt::ControlModifier);
    expectSelected({u"d"_s, u"e"_s});
}

TEST_F(EditorTableSelection, StaysWhenTheCurrentCellMovesToTheSide)
{
    shown.clickRow(1);
    press(Qt::Key_Right);
    EXPECT_EQ(shown.list().currentIndex().row(), 1);
    EXPECT_EQ(shown.list().currentIndex().column(), 1);
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_EQ(shown.list().currentIndex().column(), 0);
    expectSelected({u"b"_s});
}

TEST_F(EditorTableSelection, FollowsTheModel)
{
    select({u"a"_s, u"b"_s, u"e"_s});
    expectSelected({u"a"_s, u"b"_s, u"e"_s});
    select({u"d"_s});
    expectSelected({u"d"_s});
    shown.clickRow(0, Qt::ControlModifier);
    expectSelected({u"a"_s, u"d"_s});
    select({});
    expectSelected({});
}

TEST_F(EditorTableSelection, IsSetOnceForOneChange)
{
    int changes = 0;
    const auto notifier = shown.model().selection.addNotifier([&] { ++changes; });
    const QSignalSpy highlights(shown.list().selectionModel(), &QItemSelectionModel::selectionChanged);
    shown.clickRow(1);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(highlights.size(), 1);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(highlights.size(), 2);
    select({u"a"_s});
    EXPECT_EQ(changes, 3);
}

TEST_F(EditorTableSelection, SurvivesSortingWithAllItsGaps)
{
    select({u"a"_s, u"d"_s});
    shown.model().setSortOrder({{Key::fileName, Qt::DescendingOrder}});
    EXPECT_EQ(shown.highlightedNames(), QStringList({u"a"_s, u"d"_s}));
    shown.model().setSortOrder({{Key::fileName}});
    expectSelected({u"a"_s, u"d"_s});
}

TEST_F(EditorTableSelection, SurvivesThatRowsAreReadAgain)
{
    select({u"a"_s, u"d"_s});
    QList<EditableAudioFile> rows = shown.model().files.value();
    rows[0].tags.artist = u"New"_s;
    shown.model().files = rows;
    expectSelected({u"a"_s, u"d"_s});
    rows[3] = unreadableRow(u"d"_s);
    shown.model().files = rows;
    expectSelected({u"a"_s});
}

TEST_F(EditorTableSelection, DoesNotGrowWhenARowInItsMidstBecomesReadable)
{
    press(Qt::Key_A, Qt::ControlModifier);
    QList<EditableAudioFile> rows = shown.model().files.value();
    rows[2] = rowOf(u"c"_s);
    shown.model().files = rows;
    expectSelected({u"a"_s, u"b"_s, u"d"_s, u"e"_s});
}

TEST_F(EditorTableSelection, GoesWithTheRows)
{
    select({u"a"_s});
    shown.model().reset();
    expectSelected({});
    shown.fixture().show({rowOf(u"a"_s), rowOf(u"b"_s)});
    expectSelected({u"a"_s, u"b"_s});
}

TEST_F(EditorTableSelection, StartsAtTheFirstRowForTheKeys)
{
    shown.header().setFocus();
    shown.fixture().show({rowOf(u"x"_s), rowOf(u"y"_s)});
    EXPECT_FALSE(shown.list().currentIndex().isValid());
    shown.list().setFocus();
    EXPECT_TRUE(shown.list().hasFocus());
    EXPECT_EQ(shown.list().currentIndex().row(), 0);
    expectSelected({u"x"_s, u"y"_s});
}

} // namespace tonearm
