// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QImage>

#include <optional>

namespace tonearm {

/// The picture over white, without transparency; a picture without any comes back as it is. A JPEG can't be
/// transparent, and white is what most covers with transparent parts are drawn for.
QImage overWhite(QImage image);

/// A picture without transparency as a JPEG at a quality of 0 to 1, in the picture's colour space. Nothing if
/// it can't be encoded.
std::optional<QByteArray> encodedJpeg(const QImage &image, double quality);

} // namespace tonearm
