// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/CloseKeys.h"

#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QPushButton>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

TEST(CloseKeys, CloseTheWindowWhereverTheFocusIs)
{
    QWidget window;
    auto *button = new QPushButton(u"Go"_s, &window);
    addCloseKeys(&window);
    ASSERT_TRUE(showActive(window));
    button->setFocus();
    press(Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    ASSERT_TRUE(showActive(window));
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window.isVisible());
}

} // namespace tonearm
