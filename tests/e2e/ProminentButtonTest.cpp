// SPDX-License-Identifier: GPL-3.0-or-later
// The button that a section is there for: its text can be read in any colours.
#include "app/screens/elements/ProminentButton.h"

#include "app/screens/elements/Contrast.h"
#include "helpers/Rendering.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QTest>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

// The colour of the ground, left of the text.
QColor groundOf(QWidget &button)
{
    return rendered(button).pixelColor(6, button.height() / 2);
}

QPalette accented(const QColor &accent, const QColor &text)
{
    QPalette palette = lightPalette();
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, text);
    return palette;
}

} // namespace

TEST(Contrast, IsThatOfTheCommonRule)
{
    EXPECT_NEAR(contrast(Qt::white, Qt::black), 21, 0.01);
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(contrast(Qt::red, Qt::red), 1, 0.01);
    EXPECT_NEAR(contrast(Qt::white, QColor::fromRgb(0x767676)), 4.54, 0.01);
}

TEST(Contrast, LeavesAGroundAloneThatWillDo)
{
    EXPECT_EQ(legibleGround(QColor::fromRgb(0x123456), Qt::white), QColor::fromRgb(0x123456));
}

TEST(ProminentButton, CanBeReadOnAnyAccent)
{
    const QList<std::pair<QColor, QColor>> accents = {
        {QColor::fromRgb(0x308cc6), Qt::white}, {QColor::fromRgb(0x3daee9), Qt::white},
        {QColor::fromRgb(0xffcc00), Qt::white}, {QColor::fromRgb(0xffffff), Qt::white},
        {QColor::fromRgb(0x804000), Qt::black}, {QColor::fromRgb(0x000000), Qt::black},
        {QColor::fromRgb(0x777777), Qt::black}, {QColor::fromRgb(0x909090), QColor::fromRgb(0x808080)}};
    for (const auto &[accent, text] : accents) {
        SCOPED_TRACE(accent.name().toStdString());
        const PaletteScope scope(accented(accent, text));
        ProminentButton button(u"Encode to FLAC"_s);
        button.resize(button.sizeHint() + QSize(40, 4));
        EXPECT_GE(contrast(groundOf(button), text), legibleContrast);
        button.setDown(true);
        EXPECT_GE(contrast(groundOf(button), text), legibleContrast);
    }
}

TEST(ProminentButton, ShowsThatItIsPressed)
{
    ProminentButton button(u"Encode to FLAC"_s);
    button.resize(200, 30);
    const QColor ground = groundOf(button);
    button.setDown(true);
    EXPECT_NE(groundOf(button), ground);
}

TEST(ProminentButton, ShowsThatItHasTheFocus)
{
    QWidget window;
    const QPushButton first(u"First"_s, &window);
    ProminentButton button(u"Encode to FLAC"_s, &window);
    button.resize(200, 30);
    ASSERT_TRUE(showActive(window));
    const QImage before = rendered(button);
    button.setFocus(Qt::TabFocusReason);
    EXPECT_NE(rendered(button), before);
}

TEST(ProminentButton, LooksLikeAnyOtherWhileDisabled)
{
    ProminentButton button(u"Encode to FLAC"_s);
    QPushButton other(u"Encode to FLAC"_s);
    for (QWidget *widget : {static_cast<QWidget *>(&button), static_cast<QWidget *>(&other)}) {
        widget->resize(200, 30);
        widget->setEnabled(false);
    }
    EXPECT_EQ(rendered(button), rendered(other));
}

} // namespace tonearm
