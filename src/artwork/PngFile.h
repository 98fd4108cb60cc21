// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QColorSpace>
#include <QImage>
#include <QSize>
#include <QString>

#include <cstdio>
#include <memory>

struct png_info_def;
struct png_struct_def;

namespace tonearm {

class BoxAverage;

/// The bytes that every PNG begins with.
inline constexpr QByteArrayView pngSignature("\x89PNG\r\n\x1A\n");

/// What of them tells a PNG whose further bytes are damaged or missing.
inline constexpr QByteArrayView pngSignatureStart = pngSignature.first(4);

/// A PNG that is read row by row and made smaller on the way, so that a picture of any size takes no more
/// memory than what is wanted of it. Texts and other additions in the file are passed over, an orientation
/// among them, which few programs write and fewer honour; not so a colour profile.
class PngFile
{
public:
    /// Reads everything in front of the picture. Blocks.
    explicit PngFile(const QString &path);
    ~PngFile();
    PngFile(const PngFile &) = delete;
    PngFile &operator=(const PngFile &) = delete;

    /// In pixels; empty if the file couldn't be read so far.
    QSize size() const;

    /// An interlaced picture comes in passes over all of it instead of row by row, and is held as a whole,
    /// at four bytes for each pixel.
    bool isInterlaced() const;

    /// Reads the picture, each square of `factor` by `factor` pixels averaged to one; at the right and lower
    /// edges a square may be cut. Transparency is kept. A null image if the file is damaged or memory is
    /// lacking. For one call. Blocks.
    QImage averaged(int factor);

private:
    struct CloseFile
    {
        void operator()(std::FILE *file) const { std::fclose(file); }
    };

    bool readHeader();
    bool askForPlainPixels();
    bool hasAlpha() const;
    QColorSpace colorSpace() const;
    bool readRow(quint8 *row);
    bool readWhole(QImage &image);
    bool addRowsTo(BoxAverage &average);

    std::unique_ptr<std::FILE, CloseFile> m_file;
    png_struct_def *m_png = nullptr;
    png_info_def *m_info = nullptr;
    bool m_isOpen = false;
};

} // namespace tonearm
