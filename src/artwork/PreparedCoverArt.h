// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>

namespace tonearm {

/// A picture that is ready to be embedded: the file that was given, or a smaller copy of it in the artwork
/// folder. The copy can still be over the budget; `byteCount` tells.
struct PreparedCoverArt
{
    /// The picture to use.
    QUrl url;
    /// The picture that was given; the same as `url` if no copy was made.
    QUrl originalURL;
    /// In bytes.
    qint64 byteCount = 0;
    qint64 originalByteCount = 0;
    /// Of the picture to use, in pixels, as it is stored in the file.
    int pixelWidth = 0;
    int pixelHeight = 0;

    bool operator==(const PreparedCoverArt &) const = default;
};

} // namespace tonearm
