// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace tonearm {

/// What the encoder is told of the album. An unknown text is empty; numbers stand as the user typed them.
struct AudioMetadata
{
    /// The album's artist.
    QString artist = {};
    QString album = {};
    QString year = {};
    QString genre = {};
    QString discNumber = {};
    QString discTotal = {};
    /// The prepared image to embed.
    std::optional<QUrl> coverArtURL = {};

    bool operator==(const AudioMetadata &) const = default;
};

} // namespace tonearm
