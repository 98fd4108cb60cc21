// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QSize>

#include <functional>
#include <optional>

namespace tonearm {

/// A picture as the bytes of a file.
struct EncodedPicture
{
    QByteArray bytes = {};
    /// In pixels.
    QSize size = {};

    bool operator==(const EncodedPicture &) const = default;
};

/// What the ladder asks for at its steps; nothing where a step fails.
struct LadderSteps
{
    /// The picture with a longer side of at most so many pixels.
    std::function<std::optional<QImage>(int longestSide)> thumbnail;
    /// That picture as a file, at a quality of 0 to 1.
    std::function<std::optional<QByteArray>(const QImage &image, double quality)> encode;
};

/// The longer sides to try for a picture whose own is `start`, largest first.
QList<int> ladderDimensions(int start);

/// Goes down from the picture's own size in dimension, and at each dimension in quality, to the first result
/// of at most `byteBudget` bytes. If none is: the smallest of all, the first of several that are equally
/// small. Nothing if every step has failed.
std::optional<EncodedPicture> shrunkPicture(int start, qint64 byteBudget, const LadderSteps &steps);

} // namespace tonearm
