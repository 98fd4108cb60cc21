// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/PngFile.h"

#include "artwork/BoxAverage.h"

#include <QFile>

#include <png.h>

#include <array>
#include <csetjmp>
#include <cstddef>
#include <vector>

namespace tonearm {

namespace {

// Runs a step of the library, which reports an error by a jump back to here; whether it went well. The step
// may own nothing: the jump runs no destructors.
template <typename Step> [[gnu::noinline]] bool attempt(png_structp png, Step step)
{
    if (setjmp(png_jmpbuf(png)) != 0)
        return false;
    step();
    return true;
}

// By default the library speaks on the standard error stream.
void ignoreWarning(png_structp, png_const_charp) {}

[[noreturn]] void jumpBack(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}

// Texts are packed, and those of a small file can unfold to gigabytes. What the pixels themselves need
// can't be passed over.
void passOverAdditions(png_structp png)
{
    const std::array<png_byte, 5> colourProfile{'i', 'C', 'C', 'P', 0};
    png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_AS_DEFAULT, colourProfile.data(), 1);
}

} // namespace

PngFile::PngFile(const QString &path)
    : m_file(std::fopen(QFile::encodeName(path).constData(), "rbe"))
{
    if (!m_file)
        return;
    m_png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, jumpBack, ignoreWarning);
    m_info = m_png == nullptr ? nullptr : png_create_info_struct(m_png);
    m_isOpen = m_info != nullptr && readHeader();
}

PngFile::~PngFile()
{
    png_destroy_read_struct(&m_png, &m_info, nullptr);
}

bool PngFile::readHeader()
{
    return attempt(m_png, [this] {
        png_init_io(m_png, m_file.get());
        passOverAdditions(m_png);
        png_read_info(m_png, m_info);
    });
}

QSize PngFile::size() const
{
    if (!m_isOpen)
        return {};
    return {static_cast<int>(png_get_image_width(m_png, m_info)),
            static_cast<int>(png_get_image_height(m_png, m_info))};
}

bool PngFile::isInterlaced() const
{
    return m_isOpen && png_get_interlace_type(m_png, m_info) != PNG_INTERLACE_NONE;
}

bool PngFile::hasAlpha() const
{
    return (png_get_color_type(m_png, m_info) & PNG_COLOR_MASK_ALPHA) != 0 ||
           png_get_valid(m_png, m_info, PNG_INFO_tRNS) != 0;
}

QColorSpace PngFile::colorSpace() const
{
    png_charp name = nullptr;
    int compression = 0;
    png_bytep profile = nullptr;
    png_uint_32 length = 0;
    if (png_get_iCCP(m_png, m_info, &name, &compression, &profile, &length) == 0)
        return {};
    return QColorSpace::fromIccProfile(
        QByteArray(reinterpret_cast<const char *>(profile), static_cast<qsizetype>(length)));
}

// Whatever the file stores, rows come as red, green, blue and opacity with 8 bits each.
bool PngFile::askForPlainPixels()
{
    constexpr png_uint_32 opaque = 255;
    return attempt(m_png, [this] {
        png_set_expand(m_png);
        png_set_scale_16(m_png);
        png_set_gray_to_rgb(m_png);
        png_set_add_alpha(m_png, opaque, PNG_FILLER_AFTER);
        png_set_interlace_handling(m_png);
        png_read_update_info(m_png, m_info);
    });
}

bool PngFile::readRow(quint8 *row)
{
    return attempt(m_png, [this, row] { png_read_row(m_png, row, nullptr); });
}

bool PngFile::readWhole(QImage &image)
{
    std::vector<png_bytep> rows;
    for (int y = 0; y < image.height(); ++y)
        rows.push_back(image.scanLine(y));
    return attempt(m_png, [this, all = rows.data()] { png_read_image(m_png, all); });
}

bool PngFile::addRowsTo(BoxAverage &average)
{
    const QSize stored = size();
    const bool isWhole = isInterlaced();
    QImage rows(stored.width(), isWhole ? stored.height() : 1, QImage::Format_RGBA8888);
    if (rows.isNull() || (isWhole && !readWhole(rows)))
        return false;
    for (int y = 0; y < stored.height(); ++y) {
        quint8 *row = rows.scanLine(isWhole ? y : 0);
        if (!isWhole && !readRow(row))
            return false;
        average.addRow({row, static_cast<std::size_t>(rows.bytesPerLine())});
    }
    return true;
}

QImage PngFile::averaged(int factor)
{
    if (!m_isOpen)
        return {};
    const bool isTransparent = hasAlpha();
    QImage smaller(BoxAverage::averagedSize(size(), factor),
                   isTransparent ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    if (smaller.isNull() || !askForPlainPixels())
        return {};
    BoxAverage average(smaller, size().height(), factor);
    if (!addRowsTo(average))
        return {};
    smaller.setColorSpace(colorSpace());
    return smaller;
}

} // namespace tonearm
