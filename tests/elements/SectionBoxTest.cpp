// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/SectionBox.h"

#include "helpers/Printing.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

TEST(SectionBox, HasItsTitleForAHeading)
{
    SectionBox box(2, u"Album Metadata"_s);
    auto *title = named<QLabel>(box, u"Album Metadata"_s);
    ASSERT_TRUE(title);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(title)->role(), QAccessible::Heading);
    EXPECT_EQ(title->font().weight(), QFont::DemiBold);
    EXPECT_EQ(accessibleNameOf(box), u"Album Metadata"_s);
}

TEST(SectionBox, TakesAnotherTitle)
{
    SectionBox box(3, u"Chapters & Song Titles"_s);
    box.setTitle(u"Chapters & Song Titles — 2 chapters"_s);
    EXPECT_EQ(box.title(), u"Chapters & Song Titles — 2 chapters"_s);
    auto *title = named<QLabel>(box, u"Chapters & Song Titles — 2 chapters"_s);
    ASSERT_TRUE(title);
    EXPECT_EQ(title->text(), u"Chapters & Song Titles — 2 chapters"_s);
}

TEST(SectionBox, StacksItsContentBelowTheTitleTenApart)
{
    SectionBox box(1, u"Source File"_s);
    auto *first = new QLabel(u"First"_s);
    auto *second = new QLabel(u"Second"_s);
    box.content()->addWidget(first);
    box.content()->addWidget(second);
    box.resize(box.sizeHint());
    box.show();
    EXPECT_EQ(second->y() - (first->y() + first->height()), 10);
    EXPECT_EQ(first->x(), 0);
    auto *title = box.findChild<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
    EXPECT_EQ(title->text(), u"Source File"_s);
    EXPECT_LT(title->y(), first->y());
}

} // namespace tonearm
