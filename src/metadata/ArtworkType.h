// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

namespace tonearm {

/// The file extension for a downloaded picture, "jpg" or "png", by its content type or, where that is
/// empty, by its first bytes. Throws CoverArtError (unsupportedImageType) for any other picture.
QString artworkExtension(const QString &contentType, QByteArrayView data);

} // namespace tonearm
