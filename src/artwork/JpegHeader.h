// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIODevice>

#include <optional>

namespace tonearm {

/// How many bytes a decoder holds for the coefficients of the whole picture. A picture in one scan needs none
/// of that; one in several scans, as progressive ones are, is known only when the last scan has come.
///
/// Reads from the device's start up to the first scan. Nothing if there is none.
std::optional<qint64> jpegScanBytes(QIODevice &device);

} // namespace tonearm
