// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QRandomGenerator>

namespace tonearm::test {

/// A square of noise, the same each time, whose size as a file follows from its size in pixels.
inline QImage noisyPicture(int side)
{
    QImage image(side, side, QImage::Format_RGB32);
    QRandomGenerator random(7);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, random.generate());
    return image;
}

} // namespace tonearm::test
