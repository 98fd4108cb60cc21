// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Icons.h"

#include "elements/AllIcons.h"
#include "helpers/Printing.h"
#include "helpers/Rendering.h"

#include <gtest/gtest.h>

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <optional>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

QImage painted(IconName name, const QColor &colour, double devicePixelRatio = 1)
{
    QImage image(QSize(24, 24) * devicePixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintIcon(painter, QRectF(0, 0, 24, 24), name, colour);
    return image;
}

// The colour of the first pixel that is covered whole.
std::optional<QColor> solidColour(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).alpha() == 255)
                return image.pixelColor(x, y);
    return std::nullopt;
}

double luminance(const QColor &colour)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

} // namespace

TEST(Icons, AreAllDrawnInTheColourAskedFor)
{
    for (const IconName name : allIcons()) {
        SCOPED_TRACE(static_cast<int>(name));
        EXPECT_EQ(solidColour(painted(name, Qt::magenta, 2)), QColor(Qt::magenta));
    }
}

TEST(Icons, DifferFromEachOther)
{
    const QList<IconName> names = allIcons();
    for (qsizetype one = 0; one < names.size(); ++one)
        for (qsizetype other = one + 1; other < names.size(); ++other)
            EXPECT_NE(painted(names[one], Qt::black), painted(names[other], Qt::black))
                << one << " and " << other;
}

TEST(Icons, AreDrawnAnewForEachScaleFactor)
{
    const QImage single = painted(IconName::disc, Qt::black);
    QImage doubled = painted(IconName::disc, Qt::black, 2);
    doubled.setDevicePixelRatio(1);
    EXPECT_EQ(doubled.size(), QSize(48, 48));
    EXPECT_NE(doubled, single.scaled(48, 48)) << "not an enlarged one";
    EXPECT_NE(doubled, single.scaled(48, 48, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

TEST(Icons, StandOnTheDevicesPixels)
{
    QImage shifted(30, 30, QImage::Format_ARGB32_Premultiplied);
    shifted.fill(Qt::transparent);
    QPainter painter(&shifted);
    painter.translate(2.4, 2.3);
    paintIcon(painter, QRectF(1, 1, 24, 24), IconName::disc, Qt::black);
    painter.end();
    EXPECT_EQ(shifted.copy(3, 3, 24, 24), painted(IconName::disc, Qt::black));
}

TEST(Icons, LetAPalerColourThrough)
{
    QColor half(Qt::black);
    half.setAlpha(128);
    const QImage image = painted(IconName::folderAdd, half, 4);
    int strongest = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            strongest = std::max(strongest, image.pixelColor(x, y).alpha());
    EXPECT_NEAR(strongest, 128, 1) << "nor is it darker where strokes cross";
}

TEST(Icons, GiveAPixmapForAnySizeAndScale)
{
    const QIcon disc = icon(IconName::disc);
    EXPECT_FALSE(disc.isNull());
    const QPixmap pixmap = disc.pixmap(QSize(20, 20), 1.5);
    EXPECT_EQ(pixmap.size(), QSize(30, 30));
    EXPECT_DOUBLE_EQ(pixmap.devicePixelRatio(), 1.5);
}

TEST(Icons, FollowThePaletteThatIsInForceWhenTheyAreDrawn)
{
    const QIcon disc = icon(IconName::disc);
    const auto drawn = [&](QIcon::Mode mode) {
        return solidColour(disc.pixmap(QSize(64, 64), 1, mode).toImage());
    };
    const PaletteScope light(lightPalette());
    EXPECT_EQ(drawn(QIcon::Normal), lightPalette().color(QPalette::WindowText));
    EXPECT_EQ(drawn(QIcon::Disabled), lightPalette().color(QPalette::Disabled, QPalette::WindowText));
    const PaletteScope dark(darkPalette());
    EXPECT_EQ(drawn(QIcon::Normal), darkPalette().color(QPalette::WindowText));
    EXPECT_EQ(drawn(QIcon::Selected), darkPalette().color(QPalette::HighlightedText));
}

TEST(Tones, AreLegibleInLightAndDark)
{
    for (const QPalette &palette : {lightPalette(), darkPalette()})
        for (const Tone tone :
             {Tone::text, Tone::secondary, Tone::success, Tone::warning, Tone::information}) {
            SCOPED_TRACE(static_cast<int>(tone));
            EXPECT_GE(contrast(toneColour(tone, palette), palette.color(QPalette::Window)), 4.5);
            EXPECT_GE(contrast(toneColour(tone, palette), palette.color(QPalette::Base)), 4.5);
        }
}

TEST(Tones, ArePalerWhereDisabled)
{
    for (const Tone tone : {Tone::success, Tone::warning, Tone::information})
        EXPECT_LT(toneColour(tone, lightPalette(), QPalette::Disabled).alpha(), 255);
}

} // namespace tonearm
