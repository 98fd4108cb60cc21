// SPDX-License-Identifier: GPL-3.0-or-later
// Where a viewer's window goes to fit its picture.
#include "app/screens/elements/ArtworkWindow.h"

#include <gtest/gtest.h>

namespace tonearm {

namespace {

constexpr QRect screen(0, 0, 1920, 1080);
constexpr QRect window(50, 60, 620, 680);
constexpr QSize noMargins(0, 0);

} // namespace

TEST(FittedFrame, LeavesRoomRoundThePictureAndForTheLineBelow)
{
    EXPECT_EQ(fittedFrame({600, 500}, window, noMargins, screen), QRect(50, 60, 620, 564));
}

TEST(FittedFrame, HasALeastSize)
{
    EXPECT_EQ(fittedFrame({100, 100}, window, noMargins, screen), QRect(50, 60, 300, 260));
    EXPECT_EQ(fittedFrame({280, 196}, window, noMargins, screen).size(), QSize(300, 260));
    EXPECT_EQ(fittedFrame({281, 197}, window, noMargins, screen).size(), QSize(301, 261));
}

TEST(FittedFrame, TakesNoMoreThanNineTenthsOfTheScreen)
{
    EXPECT_EQ(fittedFrame({4000, 4000}, window, noMargins, screen), QRect(50, 60, 1728, 972));
    EXPECT_EQ(fittedFrame({4000, 100}, window, noMargins, screen).size(), QSize(1728, 260));
    EXPECT_EQ(fittedFrame({100, 4000}, window, noMargins, screen).size(), QSize(300, 972));
}

TEST(FittedFrame, IsAsLargeAsThePictureWhereTheScreenIsntKnown)
{
    EXPECT_EQ(fittedFrame({4000, 4000}, window, noMargins, std::nullopt), QRect(50, 60, 4020, 4064));
}

TEST(FittedFrame, KeepsItsTopEdgeWhileTheScreenHasRoomBelow)
{
    EXPECT_EQ(fittedFrame({600, 500}, {50, 500, 100, 100}, noMargins, screen).topLeft(), QPoint(50, 500));
    EXPECT_EQ(fittedFrame({600, 500}, {50, 700, 100, 100}, noMargins, screen).topLeft(), QPoint(50, 516));
}

TEST(FittedFrame, LeavesTheScreenOnNoSide)
{
    EXPECT_EQ(fittedFrame({600, 500}, {1800, 60, 100, 100}, noMargins, screen).topLeft(), QPoint(1300, 60));
    EXPECT_EQ(fittedFrame({600, 500}, {-30, -20, 100, 100}, noMargins, screen).topLeft(), QPoint(0, 0));
    const QRect second(1920, 30, 1280, 700);
    const QRect fitted = fittedFrame({4000, 4000}, {3000, 500, 620, 680}, noMargins, second);
    EXPECT_EQ(fitted.size(), QSize(1152, 630));
    EXPECT_EQ(fitted.bottomRight(), second.bottomRight());
}

TEST(FittedFrame, StartsWhereAScreenStartsThatIsTooSmall)
{
    EXPECT_EQ(fittedFrame({600, 500}, window, noMargins, QRect(10, 20, 200, 200)), QRect(10, 20, 300, 260));
}

TEST(FittedFrame, CountsTheDesktopsFrame)
{
    const QSize margins(4, 30);
    EXPECT_EQ(fittedFrame({600, 500}, window, margins, screen), QRect(50, 60, 624, 594));
    EXPECT_EQ(fittedFrame({4000, 4000}, {0, 500, 10, 10}, margins, screen), QRect(0, 78, 1732, 1002));
}

} // namespace tonearm
