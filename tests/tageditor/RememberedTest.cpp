// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/Remembered.h"

#include <gtest/gtest.h>

#include <QList>

namespace tonearm {

namespace {

struct RememberedTest : testing::Test
{
    int sum(const QList<int> &numbers, int offset)
    {
        return remembered.from(numbers, offset, [this](const QList<int> &all, int more) {
            ++timesWorkedOut;
            int total = more;
            for (const int number : all)
                total += number;
            return total;
        });
    }

    Remembered<int, QList<int>, int> remembered;
    int timesWorkedOut = 0;
};

} // namespace

TEST_F(RememberedTest, IsWorkedOutOnceForTheSame)
{
    EXPECT_EQ(sum({1, 2}, 10), 13);
    EXPECT_EQ(sum({1, 2}, 10), 13);
    EXPECT_EQ(timesWorkedOut, 1);
}

TEST_F(RememberedTest, IsWorkedOutAgainForAnyOther)
{
    EXPECT_EQ(sum({1, 2}, 10), 13);
    EXPECT_EQ(sum({1, 3}, 10), 14);
    EXPECT_EQ(sum({1, 3}, 0), 4);
    EXPECT_EQ(timesWorkedOut, 3);
}

TEST_F(RememberedTest, IsWorkedOutForWhatIsEmptyToo)
{
    EXPECT_EQ(sum({}, 0), 0);
    EXPECT_EQ(timesWorkedOut, 1);
}

} // namespace tonearm
