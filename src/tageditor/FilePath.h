// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <QUrl>

#include <filesystem>
#include <optional>

namespace tonearm {

/// The URL of a path as the system has it. A path that isn't UTF-8 keeps its bytes, percent-encoded, so that
/// no two files share a URL; as text such a byte shows as U+FFFD.
QUrl fileURL(const std::filesystem::path &path);

/// The path that a file URL stands for, byte for byte.
std::filesystem::path nativePath(const QUrl &url);

/// The same as text. Throws std::system_error for a path that isn't UTF-8: no text names it to a child
/// program.
QString textPath(const QUrl &url);

/// When the content of the file was last changed; nothing if that can't be told. Blocks.
std::optional<QDateTime> contentModificationDate(const QUrl &url);

} // namespace tonearm
