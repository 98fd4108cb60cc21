// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/ArtworkFolder.h"

#include <QUrl>

#include <memory>
#include <optional>

namespace tonearm {

/// The cover under a name that ffmpeg takes as it is, for as long as this object lives.
class JobCoverArt
{
public:
    explicit JobCoverArt(std::shared_ptr<ArtworkFolder> folder);
    ~JobCoverArt();
    JobCoverArt(const JobCoverArt &) = delete;
    JobCoverArt &operator=(const JobCoverArt &) = delete;

    /// The cover itself, or a copy in the artwork folder if its name won't do. Once only. Throws
    /// std::system_error. Blocks.
    QUrl withUsableName(const QUrl &cover);

private:
    std::shared_ptr<ArtworkFolder> m_folder;
    std::optional<QUrl> m_copy;
};

} // namespace tonearm
