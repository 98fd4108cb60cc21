// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Spinner.h"

#include "elements/MotionStyle.h"
#include "helpers/Await.h"
#include "helpers/Rendering.h"

#include <gtest/gtest.h>

#include <QVBoxLayout>

namespace tonearm {

using namespace test;

TEST(Spinner, TurnsOnlyWhileItIsShown)
{
    MotionStyle moving(true);
    Spinner spinner;
    spinner.setStyle(&moving);
    EXPECT_FALSE(spinner.isTurning());
    spinner.show();
    EXPECT_TRUE(spinner.isTurning());
    const QImage first = rendered(spinner);
    EXPECT_TRUE(eventually([&] { return rendered(spinner) != first; }));
    spinner.hide();
    EXPECT_FALSE(spinner.isTurning());
}

TEST(Spinner, StopsWhenItsWindowIsHidden)
{
    MotionStyle moving(true);
    QWidget window;
    auto *spinner = new Spinner(&window);
    spinner->setStyle(&moving);
    window.show();
    EXPECT_TRUE(spinner->isTurning());
    window.hide();
    EXPECT_FALSE(spinner->isTurning());
}

TEST(Spinner, StandsStillWhereNothingIsToMove)
{
    MotionStyle still(false);
    Spinner spinner;
    spinner.setStyle(&still);
    spinner.show();
    EXPECT_FALSE(spinner.isTurning());
}

} // namespace tonearm
