// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/MenuButton.h"

#include "helpers/Menus.h"
#include "helpers/Printing.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QTest>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct MenuButtonTest : testing::Test
{
    void SetUp() override { ASSERT_TRUE(showActive(button)); }

    QMenu &opened()
    {
        click(button);
        return openMenu();
    }

    QStringList names = {u"One"_s};
    QString picked;
    MenuButton button{u"Choose a name"_s, u"Names"_s, [this](QMenu &menu) {
                          for (const QString &name : names)
                              QObject::connect(addPlainEntry(menu, name), &QAction::triggered, &menu,
                                               [this, name] { picked = name; });
                      }};
};

} // namespace

TEST_F(MenuButtonTest, IsNamed)
{
    EXPECT_EQ(accessibleNameOf(button), u"Choose a name"_s);
    EXPECT_EQ(button.toolTip(), u"Choose a name"_s);
    EXPECT_EQ(accessibleNameOf(opened()), u"Names"_s);
    openMenu().close();
}

TEST_F(MenuButtonTest, FillsItsMenuAnewEachTime)
{
    EXPECT_EQ(entriesOf(opened()), QStringList{u"One"_s});
    openMenu().close();
    names = {u"Two"_s, u"Three"_s};
    EXPECT_EQ(entriesOf(opened()), names);
    pick(openMenu(), u"Three"_s);
    EXPECT_EQ(picked, u"Three"_s);
    EXPECT_THROW(openMenu(), std::runtime_error);
}

TEST_F(MenuButtonTest, ShowsForeignTextsAsTheyAre)
{
    names = {u"R&B\tand\nmore"_s};
    EXPECT_EQ(entriesOf(opened()), QStringList{u"R&&B and more"_s});
    pick(openMenu(), u"R&&B and more"_s);
    EXPECT_EQ(picked, names.first());
}

TEST_F(MenuButtonTest, StaysNarrowWhateverTheText)
{
    names = {QString(1000, u'x')};
    EXPECT_LT(opened().width(), 500);
    EXPECT_TRUE(entriesOf(openMenu()).first().contains(u'…'));
    openMenu().close();
}

} // namespace tonearm
