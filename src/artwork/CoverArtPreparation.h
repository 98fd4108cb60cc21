// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/PreparedCoverArt.h"

#include <QUrl>

#include <memory>
#include <optional>

namespace tonearm {

class ArtworkFolder;

/// Makes pictures fit a size limit. Copies share the folder; calls can run side by side.
class CoverArtPreparation
{
public:
    /// `folder` is where smaller copies go.
    explicit CoverArtPreparation(std::shared_ptr<ArtworkFolder> folder);

    /// A picture of at most `byteBudget` bytes, or without a budget of any size, comes back as it is; of a
    /// larger one a smaller copy is made, a JPEG. If no copy can be made small enough, it is the smallest
    /// that can. The file's content decides what it is; only JPEG and PNG are pictures here.
    ///
    /// Throws CoverArtError, or std::system_error if a copy can't be saved; then no file is left. Blocks, up
    /// to some seconds for a large picture: not for the main thread.
    PreparedCoverArt prepare(const QUrl &url, std::optional<qint64> byteBudget) const;

private:
    std::shared_ptr<ArtworkFolder> m_folder;
};

} // namespace tonearm
