// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/WindowFit.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct WindowFitTest : testing::Test
{
    WindowFitTest()
    {
        text->setWordWrap(true);
        column->addWidget(text);
        column->addWidget(button);
        keepFitted(&window, 300);
        EXPECT_TRUE(showActive(window));
    }

    QWidget window;
    QVBoxLayout *column = new QVBoxLayout(&window);
    QLabel *text = new QLabel(u"Short"_s, &window);
    QPushButton *button = new QPushButton(u"Go"_s, &window);
};

} // namespace

TEST_F(WindowFitTest, HasTheWidthAndNoMoreHeightThanIsNeeded)
{
    EXPECT_EQ(window.size(), QSize(300, column->totalHeightForWidth(300)));
    EXPECT_EQ(window.minimumSize(), window.size());
    EXPECT_EQ(window.maximumSize(), window.size());
}

TEST_F(WindowFitTest, FollowsItsTexts)
{
    const int before = window.height();
    text->setText(u"A text that goes on and on "_s.repeated(10));
    EXPECT_TRUE(eventually([&] { return window.height() > before; }));
    EXPECT_GE(text->height(), text->heightForWidth(text->width()));
    EXPECT_EQ(window.width(), 300);
    text->setText(u"Short"_s);
    EXPECT_TRUE(eventually([&] { return window.height() == before; }));
}

TEST_F(WindowFitTest, IsWiderWhereItsContentMustBe)
{
    button->setText(u"A button that can't be any narrower "_s.repeated(3));
    EXPECT_TRUE(eventually([this] { return button->width() >= button->minimumSizeHint().width(); }));
    EXPECT_GT(window.width(), 300);
    EXPECT_GE(window.width(), button->geometry().right());
}

} // namespace tonearm
