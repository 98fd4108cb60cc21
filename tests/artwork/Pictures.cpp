// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Pictures.h"

#include "helpers/Contents.h"

#include <QBuffer>
#include <QImageWriter>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

#include <algorithm>

namespace tonearm::test {

namespace {

template <typename Number> QByteArray bigEndian(Number number)
{
    QByteArray bytes(sizeof(Number), Qt::Uninitialized);
    qToBigEndian(number, bytes.data());
    return bytes;
}

QByteArray jpegSegment(char marker, const QByteArray &contents)
{
    constexpr qsizetype lengthBytes = 2;
    return QByteArray("\xFF") + marker + bigEndian(static_cast<quint16>(contents.size() + lengthBytes)) +
           contents;
}

QByteArray insertedAfterStart(const QByteArray &jpeg, const QByteArray &segments)
{
    constexpr qsizetype startBytes = 2;
    return jpeg.first(startBytes) + segments + jpeg.sliced(startBytes);
}

// One entry of a TIFF directory with one number.
QByteArray tiffEntry(quint16 tag, quint16 type, quint32 value)
{
    constexpr quint16 shortType = 3;
    const QByteArray field =
        type == shortType ? bigEndian(static_cast<quint16>(value)) + QByteArray(2, '\0') : bigEndian(value);
    return bigEndian(tag) + bigEndian(type) + bigEndian(quint32{1}) + field;
}

} // namespace

QImage noise(QSize size, quint32 seed)
{
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator random(seed);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<quint32 *>(image.scanLine(y));
        random.fillRange(line, image.width());
        std::for_each(line, line + image.width(), [](quint32 &pixel) { pixel |= 0xFF000000U; });
    }
    return image;
}

QImage quarters(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) {
            const bool isRight = x >= size.width() / 2;
            const bool isLower = y >= size.height() / 2;
            image.setPixelColor(x, y,
                                isLower ? (isRight ? Qt::white : Qt::blue) : (isRight ? Qt::green : Qt::red));
        }
    return image;
}

QByteArray encoded(const QImage &image, const char *format, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, format);
    if (QByteArrayView(format) == "jpeg")
        writer.setQuality(quality);
    EXPECT_TRUE(writer.write(image)) << writer.errorString().toStdString();
    return bytes;
}

QByteArray withExif(const QByteArray &jpeg, int orientation, const QByteArray &thumbnail)
{
    constexpr quint16 shortType = 3;
    constexpr quint16 longType = 4;
    constexpr quint16 orientationTag = 0x0112;
    constexpr quint16 thumbnailPlaceTag = 0x0201;
    constexpr quint16 thumbnailLengthTag = 0x0202;
    // Header of 8 bytes, a directory of one entry in 18, one of two entries in 30, the thumbnail.
    constexpr quint32 firstDirectory = 8;
    constexpr quint32 secondDirectory = 26;
    constexpr quint32 thumbnailPlace = 56;
    QByteArray tiff = QByteArray("MM\0\x2A", 4) + bigEndian(firstDirectory) + bigEndian(quint16{1}) +
                      tiffEntry(orientationTag, shortType, static_cast<quint32>(orientation)) +
                      bigEndian(thumbnail.isEmpty() ? quint32{0} : secondDirectory);
    if (!thumbnail.isEmpty())
        tiff += bigEndian(quint16{2}) + tiffEntry(thumbnailPlaceTag, longType, thumbnailPlace) +
                tiffEntry(thumbnailLengthTag, longType, static_cast<quint32>(thumbnail.size())) +
                bigEndian(quint32{0}) + thumbnail;
    return insertedAfterStart(jpeg, jpegSegment('\xE1', QByteArray("Exif\0\0", 6) + tiff));
}

QByteArray withComments(const QByteArray &jpeg, qsizetype count)
{
    constexpr qsizetype longest = 60'000;
    QByteArray comments;
    for (qsizetype left = count; left > 0; left -= longest)
        comments += jpegSegment('\xFE', QByteArray(std::min(left, longest), 'x'));
    return insertedAfterStart(jpeg, comments);
}

QByteArray jpegClaiming(QSize size, bool isProgressive)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("small.jpg"));
    makeJpeg(path, {.size = {16, 16}, .isProgressive = isProgressive});
    QByteArray jpeg = readFile(path);
    const qsizetype frame = jpeg.indexOf(isProgressive ? "\xFF\xC2" : "\xFF\xC0");
    EXPECT_GT(frame, 0);
    const QByteArray sides =
        bigEndian(static_cast<quint16>(size.height())) + bigEndian(static_cast<quint16>(size.width()));
    // A frame is its marker, its length in two bytes, the precision in one, and the sides.
    constexpr qsizetype sidesPlace = 5;
    return jpeg.replace(frame + sidesPlace, sides.size(), sides);
}

} // namespace tonearm::test
