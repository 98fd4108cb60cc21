// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/AppIcon.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>

namespace tonearm {

namespace {

QImage drawn(int side, double scale = 1)
{
    return applicationIcon().pixmap(QSize(side, side), scale).toImage();
}

} // namespace

TEST(AppIcon, IsDrawnInEachSize)
{
    for (const int side : {16, 22, 24, 32, 48, 64, 96, 128, 256, 512}) {
        const QImage icon = drawn(side);
        EXPECT_EQ(icon.size(), QSize(side, side));
        EXPECT_EQ(icon.pixelColor(0, 0).alpha(), 0) << "its corners are free";
        EXPECT_EQ(icon.pixelColor(side / 2, side / 2).alpha(), 255);
    }
}

TEST(AppIcon, IsDrawnAnewForEachScaleFactor)
{
    QImage doubled = drawn(48, 2);
    EXPECT_EQ(doubled.size(), QSize(96, 96));
    doubled.setDevicePixelRatio(1);
    EXPECT_EQ(doubled, drawn(96));
}

TEST(AppIcon, OffersSizesToTheWindowSystem)
{
    EXPECT_TRUE(applicationIcon().availableSizes().contains(QSize(16, 16)));
    EXPECT_TRUE(applicationIcon().availableSizes().contains(QSize(256, 256)));
}

// On a light desktop its ground stands out, and on a dark one.
TEST(AppIcon, StandsOutFromLightAndDark)
{
    const QColor edge = drawn(64).pixelColor(32, 4);
    EXPECT_EQ(edge.alpha(), 255);
    EXPECT_GT(edge.lightness(), 80);
    EXPECT_LT(edge.lightness(), 200);
}

} // namespace tonearm
