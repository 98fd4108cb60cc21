// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editorwindow/ArtworkViewerWindow.h"

#include "app/screens/elements/Bind.h"
#include "tageditor/ArtworkViewer.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

std::optional<ViewedArtwork> viewedArtwork(const ArtworkViewer &viewer)
{
    const std::optional<QImage> image = viewer.image.value();
    if (!image)
        return std::nullopt;
    return ViewedArtwork{*image, uprightSize(*image, viewer.pixelWidth.value(), viewer.pixelHeight.value()),
                         viewer.summary.value().value_or(QString())};
}

} // namespace

ArtworkViewerWindow::ArtworkViewerWindow(ArtworkViewer &viewer)
    : ArtworkWindow(u"Artwork"_s,
                    {u"No Artwork"_s,
                     u"Select files that share the same embedded artwork, or choose an image to embed."_s})
{
    bind(
        this, [&viewer] { return viewedArtwork(viewer); }, &ArtworkWindow::setArtwork);
}

} // namespace tonearm
