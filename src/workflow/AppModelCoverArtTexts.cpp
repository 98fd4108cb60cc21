// SPDX-License-Identifier: GPL-3.0-or-later
// What is told of the picture that a job embeds.
#include "workflow/AppModel.h"

#include "artwork/ByteCountText.h"

namespace tonearm {

using namespace Qt::StringLiterals;

std::optional<QString> AppModel::coverArtCaption() const
{
    const std::optional<PreparedCoverArt> art = coverArt.value();
    if (!art)
        return std::nullopt;
    QStringList pieces;
    if (const std::optional<QString> origin = coverArtOrigin.value())
        pieces.append(*origin);
    pieces.append(u"%1 × %2"_s.arg(art->pixelWidth).arg(art->pixelHeight));
    pieces.append(byteCountText(art->byteCount));
    const QString caption = pieces.join(u" · "_s);
    if (art->url == art->originalURL)
        return caption;
    return QString(caption + u" (shrunk from "_s + byteCountText(art->originalByteCount) + u')');
}

std::optional<QString> AppModel::coverArtWarning() const
{
    const std::optional<PreparedCoverArt> art = coverArt.value();
    const qint64 limit = m_settings.artworkSizeBudgetKilobytes();
    if (!art || art->byteCount <= m_settings.artworkByteBudget())
        return std::nullopt;
    const QString size = byteCountText(art->byteCount);
    if (m_settings.shrinkOversizedArtwork())
        return u"Artwork is %1 — it couldn't be squeezed under %2 KB. Some players won't show it."_s.arg(
            size, QString::number(limit));
    return u"Artwork is %1, over the %2 KB limit. Some players won't show it. Turn on shrinking in Settings to fix that."_s
        .arg(size, QString::number(limit));
}

} // namespace tonearm
