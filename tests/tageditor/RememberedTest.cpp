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

TEST_F(RememberedTest, IsTakenOverFromOneWhoHasIt)
{
    remembered.put(13, {1, 2}, 10);
    EXPECT_EQ(sum({1, 2}, 10), 13);
    EXPECT_EQ(timesWorkedOut, 0);
    EXPECT_EQ(sum({1, 2}, 11), 14);
    EXPECT_EQ(timesWorkedOut, 1);
}

TEST_F(RememberedTest, IsWorkedOutForWhatIsEmptyToo)
{
    EXPECT_EQ(sum({}, 0), 0);
    EXPECT_EQ(timesWorkedOut, 1);
}

TEST(SharedList, IsTheSameOnlyAsItsCopies)
{
    const QList<int> numbers = {1, 2};
    const SharedList<int> list(numbers);
    EXPECT_TRUE(list == SharedList<int>(numbers));
    EXPECT_FALSE(list == SharedList<int>(QList<int>({1, 2})));
    QList<int> changed = numbers;
    changed[0] = 3;
    EXPECT_FALSE(list == SharedList<int>(changed));
    EXPECT_TRUE(SharedList<int>() == SharedList<int>());
}

} // namespace tonearm
