// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/JpegEncoding.h"

#include <QBuffer>
#include <QImageWriter>

#include <cmath>
#include <cstddef>
#include <span>

namespace tonearm {

QImage overWhite(QImage image)
{
    if (!image.hasAlphaChannel())
        return image;
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        // With colours multiplied by their opacity, white's share is the same for each of them.
        for (QRgb &pixel : std::span(line, static_cast<std::size_t>(image.width())))
            pixel += 0x010101U * (255U - static_cast<uint>(qAlpha(pixel)));
    }
    image.reinterpretAsFormat(QImage::Format_RGB32);
    return image;
}

std::optional<QByteArray> encodedJpeg(const QImage &image, double quality)
{
    constexpr double percent = 100;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(static_cast<int>(std::lround(quality * percent)));
    if (!writer.write(image))
        return std::nullopt;
    return bytes;
}

} // namespace tonearm
