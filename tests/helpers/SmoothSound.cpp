// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/SmoothSound.h"

#include <algorithm>
#include <cstdint>
#include <random>

namespace tonearm::test {

QByteArray smoothSound(qint64 byteCount)
{
    std::mt19937 random(20240501);
    QByteArray bytes;
    std::int32_t left = 0;
    while (bytes.size() < byteCount) {
        left = std::clamp(left + static_cast<std::int32_t>(random() % 801) - 400, -30000, 30000);
        for (const std::int32_t sample : {left, -left / 2}) {
            bytes.append(static_cast<char>(sample & 0xFF));
            bytes.append(static_cast<char>((sample >> 8) & 0xFF));
        }
    }
    return bytes;
}

} // namespace tonearm::test
