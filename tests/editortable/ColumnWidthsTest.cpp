// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editortable/ColumnWidths.h"

#include <gtest/gtest.h>

#include <numeric>

namespace tonearm {

namespace {

const QList<ColumnWish> &wishes()
{
    static const QList<ColumnWish> both = {
        {.minimum = 40, .ideal = 60, .comfortable = 60, .isStretching = true},
        {.minimum = 20, .ideal = 30, .comfortable = 50},
        {.minimum = 40, .ideal = 80, .comfortable = 80, .isStretching = true},
    };
    return both;
}

} // namespace

TEST(ColumnWidths, AreIdealWhereThatFits)
{
    EXPECT_EQ(columnWidths(wishes(), 170), QList<int>({60, 30, 80}));
}

TEST(ColumnWidths, AreNeverBelowTheirMinimums)
{
    EXPECT_EQ(columnWidths(wishes(), 100), QList<int>({40, 20, 40}));
    EXPECT_EQ(columnWidths(wishes(), 0), QList<int>({40, 20, 40}));
}

TEST(ColumnWidths, ShrinkByWhatEachCanSpare)
{
    EXPECT_EQ(columnWidths(wishes(), 135), QList<int>({50, 25, 60}));
}

TEST(ColumnWidths, AreComfortableBeforeAnyIsMoreThanThat)
{
    EXPECT_EQ(columnWidths(wishes(), 180), QList<int>({60, 40, 80}));
    EXPECT_EQ(columnWidths(wishes(), 190), QList<int>({60, 50, 80}));
}

TEST(ColumnWidths, ShareFurtherRoomAmongThoseThatStretch)
{
    EXPECT_EQ(columnWidths(wishes(), 260), QList<int>({90, 50, 120}));
}

TEST(ColumnWidths, FillTheRoomToThePixel)
{
    for (int room = 100; room < 400; ++room) {
        const QList<int> widths = columnWidths(wishes(), room);
        EXPECT_EQ(std::accumulate(widths.begin(), widths.end(), 0), room);
    }
}

TEST(ColumnWidths, LeaveRoomThatNobodyWants)
{
    EXPECT_EQ(columnWidths({{.minimum = 20, .ideal = 30, .comfortable = 30}}, 100), QList<int>{30});
    EXPECT_TRUE(columnWidths({}, 100).isEmpty());
}

} // namespace tonearm
