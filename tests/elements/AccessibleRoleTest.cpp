// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/AccessibleRole.h"

#include "app/screens/elements/IconView.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QWidget>

namespace tonearm {

namespace {

bool isOnTheScreenFor(QWidget &widget)
{
    return !QAccessible::queryAccessibleInterface(&widget)->state().invisible;
}

} // namespace

TEST(AccessibleRole, IsTheOneThatIsSet)
{
    QWidget widget;
    ASSERT_NE(QAccessible::queryAccessibleInterface(&widget)->role(), QAccessible::Heading);
    setAccessibleRole(&widget, QAccessible::Heading);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&widget)->role(), QAccessible::Heading);
}

TEST(AccessibleRole, OfAnIconIsNoneUnlessItIsGivenOne)
{
    QWidget window;
    IconView ornament(IconName::disc, Tone::text, &window);
    IconView sign(IconName::warning, Tone::text, &window);
    setAccessibleRole(&sign, QAccessible::Graphic);
    window.show();
    EXPECT_FALSE(isOnTheScreenFor(ornament));
    EXPECT_TRUE(isOnTheScreenFor(sign));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&sign)->role(), QAccessible::Graphic);
}

TEST(AccessibleRole, HidesWhatAnOrnamentHoldsUntilItIsNoneAnyMore)
{
    QWidget row;
    const QLabel text(QStringLiteral("—"), &row);
    setAccessibleRole(&row, QAccessible::Grouping);
    row.show();
    hideFromAssistiveTechnology(&row);
    EXPECT_FALSE(isOnTheScreenFor(row));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&row)->childCount(), 0);
    setAccessibleRole(&row, QAccessible::Grouping);
    EXPECT_TRUE(isOnTheScreenFor(row));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&row)->childCount(), 1);
}

} // namespace tonearm
