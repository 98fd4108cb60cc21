// SPDX-License-Identifier: GPL-3.0-or-later
// PNG files of kinds that Qt doesn't write.
#include "artwork/Pictures.h"

#include <QFile>
#include <QtEndian>

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <vector>

#include <png.h>

namespace tonearm::test {

namespace {

int formatOf(PngRecipe::Colours colours)
{
    switch (colours) {
    case PngRecipe::Colours::grey:
        return PNG_COLOR_TYPE_GRAY;
    case PngRecipe::Colours::colour:
        return PNG_COLOR_TYPE_RGB;
    case PngRecipe::Colours::palette:
        return PNG_COLOR_TYPE_PALETTE;
    case PngRecipe::Colours::greyAlpha:
        return PNG_COLOR_TYPE_GRAY_ALPHA;
    case PngRecipe::Colours::colourAlpha:
        return PNG_COLOR_TYPE_RGB_ALPHA;
    }
    Q_UNREACHABLE();
}

// The bits of one row, most significant first. White is all ones in every format but the palette, whose
// second colour it is; so is opacity.
std::vector<png_byte> rowOf(const PngRecipe &recipe, std::size_t rowBytes, int bitsPerPixel)
{
    const bool hasAlpha =
        recipe.colours == PngRecipe::Colours::greyAlpha || recipe.colours == PngRecipe::Colours::colourAlpha;
    const bool isPalette = recipe.colours == PngRecipe::Colours::palette;
    std::vector<png_byte> row(rowBytes, 0);
    for (int bit = 0; bit < recipe.size.width() * bitsPerPixel; ++bit) {
        const bool isWhite = bit / bitsPerPixel >= recipe.size.width() / 2;
        const int bitOfPixel = bit % bitsPerPixel;
        const bool isOpacity = hasAlpha && bitOfPixel >= bitsPerPixel - recipe.bitDepth;
        const bool isSet = isPalette ? isWhite && bitOfPixel == bitsPerPixel - 1 : isWhite || isOpacity;
        if (isSet)
            row.at(static_cast<std::size_t>(bit) / 8) |= static_cast<png_byte>(0x80 >> (bit % 8));
    }
    return row;
}

void writeRows(png_structp png, png_infop info, const PngRecipe &recipe)
{
    const int bitsPerPixel = png_get_channels(png, info) * recipe.bitDepth;
    const std::vector<png_byte> row = rowOf(recipe, png_get_rowbytes(png, info), bitsPerPixel);
    const int passes = png_set_interlace_handling(png);
    for (int pass = 0; pass < passes; ++pass)
        for (int y = 0; y < recipe.size.height(); ++y)
            png_write_row(png, row.data());
}

QByteArray chunkNumber(quint32 number)
{
    QByteArray bytes(sizeof number, Qt::Uninitialized);
    qToBigEndian(number, bytes.data());
    return bytes;
}

// The CRC that ends each chunk.
quint32 checksum(const QByteArray &bytes)
{
    quint32 remainder = 0xFFFFFFFFU;
    for (const char byte : bytes) {
        remainder ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            remainder = (remainder >> 1) ^ ((remainder & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~remainder;
}

// What qCompress makes, without the length that it puts in front.
QByteArray zlibStream(const QByteArray &bytes)
{
    constexpr qsizetype lengthBytes = 4;
    return qCompress(bytes).sliced(lengthBytes);
}

} // namespace

// An error ends the test program: the library's own way, and no test should meet one.
void makePng(const QString &path, const PngRecipe &recipe)
{
    constexpr std::array<png_color, 2> blackAndWhite{png_color{0, 0, 0}, png_color{255, 255, 255}};
    std::FILE *file = std::fopen(QFile::encodeName(path).constData(), "wbe");
    ASSERT_NE(file, nullptr);
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_init_io(png, file);
    png_set_IHDR(png, info, static_cast<png_uint_32>(recipe.size.width()),
                 static_cast<png_uint_32>(recipe.size.height()), recipe.bitDepth, formatOf(recipe.colours),
                 recipe.isInterlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    if (recipe.colours == PngRecipe::Colours::palette)
        png_set_PLTE(png, info, blackAndWhite.data(), blackAndWhite.size());
    // Every row is like the one above; looking for the best way to say so takes most of the time.
    png_set_filter(png, 0, PNG_FILTER_UP);
    png_set_compression_level(png, 1);
    png_write_info(png, info);
    writeRows(png, info, recipe);
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    ASSERT_EQ(std::fclose(file), 0);
}

QByteArray pngChunk(QByteArrayView name, const QByteArray &contents)
{
    const QByteArray checked = name.toByteArray() + contents;
    return chunkNumber(static_cast<quint32>(contents.size())) + checked + chunkNumber(checksum(checked));
}

QByteArray pngClaiming(QSize size)
{
    const QByteArray header = chunkNumber(static_cast<quint32>(size.width())) +
                              chunkNumber(static_cast<quint32>(size.height())) +
                              QByteArray("\x08\x02\0\0\0", 5);
    return QByteArray("\x89PNG\r\n\x1A\n") + pngChunk("IHDR", header) +
           pngChunk("IDAT", zlibStream(QByteArray(1000, '\0')));
}

QByteArray withPackedTexts(const QByteArray &png, int count, qsizetype bytesEach)
{
    constexpr qsizetype headerEnd = 33;
    const QByteArray text =
        pngChunk("zTXt", QByteArray("Comment\0\0", 9) + zlibStream(QByteArray(bytesEach, ' ')));
    return png.first(headerEnd) + text.repeated(count) + png.sliced(headerEnd);
}

} // namespace tonearm::test
