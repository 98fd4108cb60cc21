// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ShrinkLadder.h"

#include <array>
#include <utility>

namespace tonearm {

namespace {

constexpr std::array dimensions{1400, 1200, 1000, 800, 600, 500, 400};
constexpr std::array qualities{0.85, 0.7, 0.55};

} // namespace

QList<int> ladderDimensions(int start)
{
    QList<int> result{start};
    for (const int dimension : dimensions)
        if (dimension < start)
            result.append(dimension);
    return result;
}

std::optional<EncodedPicture> shrunkPicture(int start, qint64 byteBudget, const LadderSteps &steps)
{
    std::optional<EncodedPicture> smallest;
    for (const int dimension : ladderDimensions(start)) {
        const std::optional<QImage> image = steps.thumbnail(dimension);
        if (!image)
            continue;
        for (const double quality : qualities) {
            std::optional<QByteArray> bytes = steps.encode(*image, quality);
            if (!bytes)
                continue;
            if (!smallest || bytes->size() < smallest->bytes.size())
                smallest = EncodedPicture{.bytes = *std::exchange(bytes, {}), .size = image->size()};
            if (smallest->bytes.size() <= byteBudget)
                return smallest;
        }
    }
    return smallest;
}

} // namespace tonearm
