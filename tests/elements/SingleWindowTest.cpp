// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/SingleWindow.h"

#include "helpers/Await.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct SingleWindowTest : testing::Test
{
    SingleWindow<QLabel> single;
};

} // namespace

TEST_F(SingleWindowTest, IsThereOnlyWhileItIsOpen)
{
    EXPECT_FALSE(single.window());
    single.open(u"Text"_s);
    ASSERT_TRUE(single.window());
    EXPECT_TRUE(single.window()->isVisible());
    EXPECT_EQ(single.window()->text(), u"Text"_s);
    single.window()->close();
    EXPECT_TRUE(eventually([this] { return !single.window(); }));
}

TEST_F(SingleWindowTest, IsOpenOnce)
{
    single.open(u"First"_s);
    const QLabel *first = single.window();
    single.open(u"Second"_s);
    EXPECT_EQ(single.window(), first);
    EXPECT_EQ(single.window()->text(), u"First"_s);
}

TEST_F(SingleWindowTest, ComesToTheFrontWhenItIsAskedForAgain)
{
    single.open(u"Text"_s);
    QWidget other;
    ASSERT_TRUE(showActive(other));
    single.open(u"Text"_s);
    EXPECT_TRUE(QTest::qWaitForWindowActive(single.window()));
}

TEST_F(SingleWindowTest, ComesBackWhenItWasPutAway)
{
    single.open(u"Text"_s);
    single.window()->showMinimized();
    ASSERT_TRUE(single.window()->isMinimized());
    single.open(u"Text"_s);
    EXPECT_FALSE(single.window()->isMinimized());
    EXPECT_TRUE(QTest::qWaitForWindowActive(single.window()));
}

TEST_F(SingleWindowTest, IsMadeAnewAfterItWasClosed)
{
    single.open(u"First"_s);
    single.window()->close();
    ASSERT_TRUE(eventually([this] { return !single.window(); }));
    single.open(u"Second"_s);
    EXPECT_EQ(single.window()->text(), u"Second"_s);
}

TEST_F(SingleWindowTest, HasNoSayInWhenTheProgramEnds)
{
    single.open(u"Text"_s);
    EXPECT_FALSE(single.window()->testAttribute(Qt::WA_QuitOnClose));
}

TEST(SingleWindow, IsPreparedEachTimeBeforeItIsShown)
{
    QStringList prepared;
    SingleWindow<QLabel> single([&](QLabel &window) {
        EXPECT_FALSE(window.isVisible());
        prepared.append(window.text());
    });
    single.open(u"First"_s);
    single.open(u"Again"_s);
    single.window()->close();
    ASSERT_TRUE(eventually([&] { return !single.window(); }));
    single.open(u"Second"_s);
    EXPECT_EQ(prepared, (QStringList{u"First"_s, u"Second"_s}));
}

TEST(SingleWindow, GoesWithItsOwner)
{
    QPointer<QLabel> window;
    {
        SingleWindow<QLabel> single;
        single.open(u"Text"_s);
        window = single.window();
    }
    EXPECT_FALSE(window);
}

} // namespace tonearm
