// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/CoverArtPreparation.h"

#include "artwork/ArtworkFolder.h"
#include "artwork/CoverArtError.h"
#include "artwork/JpegEncoding.h"
#include "artwork/PictureDecoding.h"
#include "artwork/PictureInfo.h"
#include "artwork/ShrinkLadder.h"
#include "support/PathText.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// The file's name without its extension. A dot in front makes a name hidden and begins no extension.
QString baseName(const QUrl &url)
{
    const QString name = lastPathComponent(url);
    const QString base = QFileInfo(name).completeBaseName();
    return base.isEmpty() ? name : base;
}

std::optional<EncodedPicture> shrunkPicture(const QString &path, const PictureInfo &info, qint64 byteBudget)
{
    const LadderSteps steps{
        .thumbnail = [&](int longestSide) -> std::optional<QImage> {
            std::optional<QImage> image = decodedPicture(path, info, longestSide);
            if (!image)
                return std::nullopt;
            return overWhite(*std::move(image));
        },
        .encode = encodedJpeg,
    };
    const int start = std::max(info.storedSize.width(), info.storedSize.height());
    return shrunkPicture(start, byteBudget, steps);
}

} // namespace

CoverArtPreparation::CoverArtPreparation(std::shared_ptr<ArtworkFolder> folder)
    : m_folder(std::move(folder))
{
}

PreparedCoverArt CoverArtPreparation::prepare(const QUrl &url, std::optional<qint64> byteBudget) const
{
    const QString path = url.toLocalFile();
    const std::optional<PictureInfo> info = pictureInfo(path);
    if (!info)
        throw CoverArtError::unreadableImage(url);
    const qint64 byteCount = QFileInfo(path).size();
    if (!byteBudget || byteCount <= *byteBudget)
        return {.url = url,
                .originalURL = url,
                .byteCount = byteCount,
                .originalByteCount = byteCount,
                .pixelWidth = info->storedSize.width(),
                .pixelHeight = info->storedSize.height()};
    const std::optional<EncodedPicture> shrunk = shrunkPicture(path, *info, *byteBudget);
    if (!shrunk)
        throw CoverArtError::couldNotShrink(url);
    return {.url = m_folder->save(shrunk->bytes, baseName(url) + u"-resized.jpg"_s),
            .originalURL = url,
            .byteCount = shrunk->bytes.size(),
            .originalByteCount = byteCount,
            .pixelWidth = shrunk->size.width(),
            .pixelHeight = shrunk->size.height()};
}

} // namespace tonearm
