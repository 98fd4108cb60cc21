// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/AfterFirstFrame.h"

#include "helpers/Await.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QWidget>

#include <memory>

namespace tonearm {

namespace {

class PaintedWindow : public QWidget
{
public:
    int paintCount = 0;

protected:
    void paintEvent(QPaintEvent * /*event*/) override { ++paintCount; }
};

struct AfterFirstFrame : testing::Test
{
    AfterFirstFrame()
    {
        afterFirstFrame(window.get(), [this] {
            ++count;
            paintsBefore = window->paintCount;
        });
    }

    std::unique_ptr<PaintedWindow> window = std::make_unique<PaintedWindow>();
    int count = 0;
    int paintsBefore = 0;
};

} // namespace

TEST_F(AfterFirstFrame, NothingHappensUntilThereIsOne)
{
    QCoreApplication::processEvents();
    EXPECT_EQ(count, 0);
    window->show();
    EXPECT_EQ(count, 0);
    EXPECT_TRUE(test::eventually([this] { return count == 1; }));
    EXPECT_GE(paintsBefore, 1);
}

TEST_F(AfterFirstFrame, NothingHappensTwice)
{
    window->show();
    ASSERT_TRUE(test::eventually([this] { return count == 1; }));
    const int painted = window->paintCount;
    window->update();
    ASSERT_TRUE(test::eventually([&] { return window->paintCount > painted; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(count, 1);
}

TEST_F(AfterFirstFrame, NothingHappensToAWindowThatHasGone)
{
    window->show();
    window.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(count, 0);
}

} // namespace tonearm
