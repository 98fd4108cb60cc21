// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/WindowFront.h"

#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QDialog>

namespace tonearm {

namespace {

struct WindowFrontTest : testing::Test
{
    QWidget window;
    QWidget other;
};

} // namespace

TEST_F(WindowFrontTest, IsTheActiveWindows)
{
    EXPECT_FALSE(isInFront(window));
    ASSERT_TRUE(test::showActive(window));
    EXPECT_TRUE(isInFront(window));
    ASSERT_TRUE(test::showActive(other));
    EXPECT_FALSE(isInFront(window));
    EXPECT_TRUE(isInFront(other));
}

TEST_F(WindowFrontTest, IsAWindowsToWhichTheActiveDialogBelongs)
{
    QDialog dialog(&window);
    ASSERT_TRUE(test::showActive(window));
    ASSERT_TRUE(test::showActive(dialog));
    EXPECT_TRUE(isInFront(window));
    EXPECT_FALSE(isInFront(other));
}

TEST_F(WindowFrontTest, BelongsToAWindowThatIsBroughtThere)
{
    ASSERT_TRUE(test::showActive(window));
    ASSERT_TRUE(test::showActive(other));
    bringToFront(window);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_TRUE(isInFront(window));
}

TEST_F(WindowFrontTest, BelongsToAWindowThatWasPutAway)
{
    window.showMinimized();
    bringToFront(window);
    EXPECT_FALSE(window.isMinimized());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

} // namespace tonearm
