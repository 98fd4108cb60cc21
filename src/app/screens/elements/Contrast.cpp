// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Contrast.h"

#include <algorithm>
#include <cmath>

namespace tonearm {

namespace {

// One of the three channels by the light that it gives; the curve of sRGB.
double linear(float channel)
{
    const double value = channel;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

} // namespace

double contrast(const QColor &one, const QColor &other)
{
    // What a screen in a lit room gives where it is black.
    constexpr double glare = 0.05;
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + glare) / (std::min(first, second) + glare);
}

QColor legibleGround(const QColor &wanted, const QColor &text)
{
    constexpr int mostSteps = 40;
    QColor ground = wanted;
    for (int step = 0; step < mostSteps && contrast(ground, text) < legibleContrast; ++step)
        ground = strengthened(ground, text);
    return ground;
}

QColor strengthened(const QColor &ground, const QColor &text)
{
    constexpr float share = 0.08F;
    const float end = contrast(text, Qt::black) > contrast(text, Qt::white) ? 0 : 1;
    const auto nearer = [&](float channel) { return channel + (end - channel) * share; };
    return QColor::fromRgbF(nearer(ground.redF()), nearer(ground.greenF()), nearer(ground.blueF()));
}

} // namespace tonearm
