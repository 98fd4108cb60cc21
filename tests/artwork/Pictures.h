// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>
#include <QSize>
#include <QString>

namespace tonearm::test {

/// A picture that is hard to compress: every pixel has a colour of its own, always the same for a seed.
QImage noise(QSize size, quint32 seed = 1);

/// A picture of four quarters: red, green, blue and white, from the upper left to the lower right.
QImage quarters(QSize size);

/// The picture as a file of a format, "jpeg" or "png"; quality 0 to 100 for a JPEG.
QByteArray encoded(const QImage &image, const char *format, int quality = 90);

/// How a JPEG is stored.
struct JpegRecipe
{
    enum class Colours { grey, colour, cmyk };

    QSize size = {64, 48};
    Colours colours = Colours::colour;
    bool isProgressive = false;
    /// Each component in a scan of its own.
    bool isInSeveralScans = false;
    /// Chroma at half the size in both directions.
    bool isSubsampled = true;
    int quality = 90;
};

/// Writes a JPEG of quarters, row by row, so that a huge one takes little memory.
void makeJpeg(const QString &path, const JpegRecipe &recipe);

/// The JPEG with an EXIF segment that tells its orientation, 1 to 8, and holds a thumbnail if one is given.
QByteArray withExif(const QByteArray &jpeg, int orientation, const QByteArray &thumbnail = {});

/// The JPEG with comments of so many bytes in total.
QByteArray withComments(const QByteArray &jpeg, qsizetype count);

/// How a PNG is stored. The names are those of the format.
struct PngRecipe
{
    enum class Colours { grey, colour, palette, greyAlpha, colourAlpha };

    QSize size = {64, 48};
    Colours colours = Colours::colour;
    int bitDepth = 8;
    bool isInterlaced = false;
};

/// Writes a PNG whose left half is black and whose right half is white, row by row; with an opacity, both are
/// opaque.
void makePng(const QString &path, const PngRecipe &recipe);

/// The start of a PNG of 8-bit colour that claims a size, with picture data that breaks off.
QByteArray pngClaiming(QSize size);

/// A chunk of a PNG.
QByteArray pngChunk(QByteArrayView name, const QByteArray &contents);

/// The PNG with so many packed texts in front of the picture, each of so many bytes when unpacked.
QByteArray withPackedTexts(const QByteArray &png, int count, qsizetype bytesEach);

/// A small JPEG, baseline or progressive, whose header claims a size.
QByteArray jpegClaiming(QSize size, bool isProgressive = false);

} // namespace tonearm::test
