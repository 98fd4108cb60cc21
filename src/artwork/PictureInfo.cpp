// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/PictureInfo.h"

#include "artwork/JpegHeader.h"
#include "artwork/JpegMarkers.h"
#include "artwork/PngFile.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace tonearm {

namespace {

std::optional<PictureInfo> jpegInfo(QFile &file)
{
    const std::optional<qint64> scanBytes = jpegScanBytes(file);
    QImageReader reader(file.fileName(), "jpeg");
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (!scanBytes || size.isEmpty())
        return std::nullopt;
    return PictureInfo{.format = PictureFormat::jpeg,
                       .storedSize = size,
                       .isTurned = reader.transformation() != QImageIOHandler::TransformationNone,
                       // The decoder keeps what surrounds the picture, and that may be all of the file.
                       .wholePictureBytes = *scanBytes + file.size()};
}

std::optional<PictureInfo> pngInfo(const QString &path)
{
    const PngFile file(path);
    const QSize size = file.size();
    if (size.isEmpty())
        return std::nullopt;
    constexpr qint64 bytesPerPixel = 4;
    const qint64 wholeBytes = bytesPerPixel * size.width() * size.height();
    return PictureInfo{.format = PictureFormat::png,
                       .storedSize = size,
                       .wholePictureBytes = file.isInterlaced() ? wholeBytes : 0};
}

} // namespace

std::optional<PictureInfo> pictureInfo(const QString &path)
{
    QFile file(path);
    // Opening a pipe would wait for its other end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray start = file.peek(pngSignature.size());
    if (start.startsWith(jpegSignature))
        return jpegInfo(file);
    if (start == pngSignature)
        return pngInfo(path);
    return std::nullopt;
}

} // namespace tonearm
