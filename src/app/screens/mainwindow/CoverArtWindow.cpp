// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/CoverArtWindow.h"

#include "app/screens/elements/Bind.h"
#include "workflow/AppModel.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

std::optional<ViewedArtwork> viewedArtwork(const AppModel &model)
{
    const std::optional<QImage> preview = model.coverArtPreview.value();
    if (!preview)
        return std::nullopt;
    ViewedArtwork viewed{*preview};
    const PreparedCoverArt art = model.coverArt.value().value_or(PreparedCoverArt());
    viewed.size = uprightSize(*preview, art.pixelWidth, art.pixelHeight);
    viewed.summary = model.coverArtCaption().value_or(QString());
    return viewed;
}

} // namespace

CoverArtWindow::CoverArtWindow(AppModel &model)
    : ArtworkWindow(
          u"Cover Art"_s,
          {u"No Cover Art"_s, u"Drag an image onto the cover art well, or right-click it to download one."_s})
{
    bind(
        this, [&model] { return viewedArtwork(model); }, &ArtworkWindow::setArtwork);
}

} // namespace tonearm
