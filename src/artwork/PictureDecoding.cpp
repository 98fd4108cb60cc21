// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/PictureDecoding.h"

#include "artwork/BoxAverage.h"
#include "artwork/PngFile.h"

#include <QImageReader>

#include <algorithm>
#include <mutex>

namespace tonearm {

namespace {

constexpr qint64 bytesPerPixel = 4;

qint64 pixels(QSize size)
{
    return qint64{size.width()} * size.height();
}

// By how much a side may be divided and stay as long as is wanted.
int spareFactor(QSize stored, QSize wanted)
{
    return std::max(1, std::min(stored.width() / wanted.width(), stored.height() / wanted.height()));
}

// A JPEG's blocks of 8 by 8 can be decoded at a half, a quarter or an eighth of their side.
int jpegFactor(QSize stored, QSize wanted)
{
    constexpr int largest = 8;
    int factor = 1;
    while (factor < largest && factor * 2 <= spareFactor(stored, wanted))
        factor *= 2;
    return factor;
}

// A last step of less than two keeps pixels sharp that a whole factor alone would leave too large.
int pngFactor(QSize stored, QSize wanted)
{
    return spareFactor(stored, wanted);
}

int decodingFactor(const PictureInfo &info, QSize wanted)
{
    return info.format == PictureFormat::jpeg ? jpegFactor(info.storedSize, wanted)
                                              : pngFactor(info.storedSize, wanted);
}

// Qt refuses pictures over its own limit, which is the process's; what may be decoded is settled here.
void raiseQtLimit()
{
    static std::once_flag once;
    std::call_once(once, [] { QImageReader::setAllocationLimit(maximumDecodingBytes / (1024 * 1024) + 1); });
}

QImage decodedJpeg(const QString &path, QSize stored, QSize wanted)
{
    raiseQtLimit();
    QImageReader reader(path, "jpeg");
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    if (wanted != stored)
        reader.setScaledSize(wanted);
    return reader.read();
}

QImage decodedPng(const QString &path, QSize stored, QSize wanted)
{
    const QImage averaged = PngFile(path).averaged(pngFactor(stored, wanted));
    if (averaged.isNull() || averaged.size() == wanted)
        return averaged;
    return averaged.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// What a file says about itself beside its pixels would weigh down every copy of it, and Qt takes a name with
// "@2x" for a picture that is to be shown at half its size.
void stripAdditions(QImage &image)
{
    for (const QStringList keys = image.textKeys(); const QString &key : keys)
        image.setText(key, {});
    image.setDevicePixelRatio(1);
}

} // namespace

QSize fittedSize(QSize size, int longestSide)
{
    const int longer = std::max(size.width(), size.height());
    if (longer <= longestSide)
        return size;
    const auto shortened = [&](int side) {
        return static_cast<int>(std::max<qint64>(1, (qint64{side} * longestSide + longer / 2) / longer));
    };
    return {shortened(size.width()), shortened(size.height())};
}

qint64 decodingBytes(const PictureInfo &info, QSize wanted)
{
    const QSize decoded = BoxAverage::averagedSize(info.storedSize, decodingFactor(info, wanted));
    qint64 count = pixels(decoded);
    if (decoded != wanted)
        count += pixels(wanted);
    if (info.isTurned)
        count += pixels(wanted);
    return info.wholePictureBytes + count * bytesPerPixel;
}

std::optional<QImage> decodedPicture(const QString &path, const PictureInfo &info, int longestSide)
{
    const QSize wanted = fittedSize(info.storedSize, longestSide);
    if (pixels(info.storedSize) > maximumStoredPixels || decodingBytes(info, wanted) > maximumDecodingBytes)
        return std::nullopt;
    QImage image = info.format == PictureFormat::jpeg ? decodedJpeg(path, info.storedSize, wanted)
                                                      : decodedPng(path, info.storedSize, wanted);
    if (image.isNull())
        return std::nullopt;
    stripAdditions(image);
    return image;
}

std::optional<QImage> screenPicture(const QUrl &url, int longestSide)
{
    const QString path = url.toLocalFile();
    const std::optional<PictureInfo> info = pictureInfo(path);
    return info ? decodedPicture(path, *info, longestSide) : std::nullopt;
}

} // namespace tonearm
