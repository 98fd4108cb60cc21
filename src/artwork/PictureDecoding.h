// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/PictureInfo.h"

#include <QImage>
#include <QSize>
#include <QUrl>

#include <optional>

namespace tonearm {

/// The most memory that decoding may take, in bytes. A picture of 8,900 by 8,900 pixels, far beyond any
/// cover, still comes in its full size; what needs more comes in a smaller one, or not at all.
inline constexpr qint64 maximumDecodingBytes = 320'000'000;

/// The most pixels that a stored picture may have: going through more takes many seconds, however small the
/// picture is wanted.
inline constexpr qint64 maximumStoredPixels = 500'000'000;

/// The longer side of a picture for the screen, in pixels, unless something else is asked for.
inline constexpr int screenPictureSide = 2048;

/// A size of the same proportions whose longer side is `longestSide`; the size itself if it isn't longer.
/// No side becomes zero.
QSize fittedSize(QSize size, int longestSide);

/// The memory that decoding a picture at a size takes, in bytes, reckoned high.
qint64 decodingBytes(const PictureInfo &info, QSize wanted);

/// Decodes a picture so that its longer side is at most `longestSide`, from the picture itself and never from
/// a smaller one stored in the file, with the file's orientation applied and transparency kept. Nothing if
/// the file is damaged or decoding would take too much memory or time. What is missing at the end of a JPEG
/// is grey. Blocks.
std::optional<QImage> decodedPicture(const QString &path, const PictureInfo &info, int longestSide);

/// Decodes a file for showing it on the screen. Nothing if it is no JPEG or PNG, or can't be decoded. Blocks.
std::optional<QImage> screenPicture(const QUrl &url, int longestSide = screenPictureSide);

} // namespace tonearm
