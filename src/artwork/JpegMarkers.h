// SPDX-License-Identifier: GPL-3.0-or-later
// Markers and their meaning: ITU-T T.81, annex B.
#pragma once

#include <QByteArrayView>

namespace tonearm {

/// The bytes that every JPEG begins with: the start marker and the first byte of another marker.
inline constexpr QByteArrayView jpegSignature("\xFF\xD8\xFF");

namespace jpeg {

/// Stands before each marker.
inline constexpr quint8 escape = 0xFF;

inline constexpr quint8 firstFrame = 0xC0;
inline constexpr quint8 lastFrame = 0xCF;
inline constexpr quint8 firstRestart = 0xD0;
inline constexpr quint8 startOfImage = 0xD8;
inline constexpr quint8 endOfImage = 0xD9;
inline constexpr quint8 startOfScan = 0xDA;

} // namespace jpeg

} // namespace tonearm
