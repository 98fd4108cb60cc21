// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

namespace tonearm {

/// What tells one file's embedded picture from another's.
struct ArtworkFingerprint
{
    /// SHA-256 of the picture's bytes, lower-case hexadecimal.
    QString digest;
    qint64 byteCount = 0;
    /// 0 where unknown.
    qint64 pixelWidth = 0;
    qint64 pixelHeight = 0;
    /// A copy of the picture in the temporary folder, for previews.
    QUrl extractedURL;

    bool operator==(const ArtworkFingerprint &) const = default;
};

} // namespace tonearm
