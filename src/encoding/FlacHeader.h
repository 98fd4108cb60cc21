// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace tonearm {

/// How many samples a FLAC file says that it holds, for each channel; nothing if the file can't be read
/// or isn't FLAC. Blocks.
std::optional<quint64> flacSampleCount(const QString &path);

} // namespace tonearm
