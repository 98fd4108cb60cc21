// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Colours.h"

namespace tonearm {

namespace {

constexpr double secondaryOpacity = 0.66;
constexpr double disabledOpacity = 0.5;

// A pair of one hue: the deeper one for light grounds, the brighter one for dark grounds.
QColor chosen(const QPalette &palette, QRgb onLight, QRgb onDark)
{
    return QColor::fromRgb(isDark(palette) ? onDark : onLight);
}

// The colour that results where an upper one of some opacity lies on a ground.
QColor mixed(const QColor &upper, const QColor &ground, double opacity)
{
    const auto channel = [&](int above, int below) {
        return qRound(above * opacity + below * (1 - opacity));
    };
    return QColor(channel(upper.red(), ground.red()), channel(upper.green(), ground.green()),
                  channel(upper.blue(), ground.blue()));
}

} // namespace

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Active, QPalette::WindowText).lightness() >
           palette.color(QPalette::Active, QPalette::Window).lightness();
}

QColor toneColour(Tone tone, const QPalette &palette, QPalette::ColorGroup group)
{
    const QColor text = palette.color(group, QPalette::WindowText);
    const auto grouped = [&](const QColor &colour) {
        return group == QPalette::Disabled ? faded(colour, disabledOpacity) : colour;
    };
    switch (tone) {
    case Tone::text:
        return text;
    case Tone::secondary:
        return mixed(text, palette.color(group, QPalette::Window), secondaryOpacity);
    case Tone::success:
        return grouped(chosen(palette, 0x1d7a36, 0x4cc76a));
    case Tone::warning:
        return grouped(chosen(palette, 0xa35c00, 0xf2b13c));
    case Tone::information:
        return grouped(chosen(palette, 0x1a63c4, 0x6fb0ff));
    case Tone::onAccent:
        return palette.color(group, QPalette::HighlightedText);
    }
    Q_UNREACHABLE();
}

QColor faded(QColor colour, double opacity)
{
    colour.setAlphaF(static_cast<float>(colour.alphaF() * opacity));
    return colour;
}

} // namespace tonearm
