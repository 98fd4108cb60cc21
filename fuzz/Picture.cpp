// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"

#include "artwork/JpegHeader.h"
#include "artwork/PictureInfo.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

void tonearm::fuzz::tryBytes(const QByteArray &bytes)
{
    QByteArray copy = bytes;
    QBuffer buffer(&copy);
    buffer.open(QBuffer::ReadOnly);
    if (jpegScanBytes(buffer).value_or(0) < 0)
        std::abort();

    static const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("picture")));
    if (!file.open(QFile::WriteOnly | QFile::Truncate) || file.write(bytes) != bytes.size())
        std::abort();
    file.close();
    const std::optional<PictureInfo> info = pictureInfo(file.fileName());
    if (info &&
        (info->storedSize.width() < 1 || info->storedSize.height() < 1 || info->wholePictureBytes < 0))
        std::abort();
}
