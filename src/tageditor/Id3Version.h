// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>

#include <optional>

namespace tonearm {

/// The version of the ID3v2 header in front of an MP3 file, 3 or 4: a file is written back with the version
/// that it came with. Nothing for any other file, another version, and a file that can't be read. Blocks.
std::optional<int> id3Version(const QUrl &url);

} // namespace tonearm
