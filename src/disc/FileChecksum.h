// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <stop_token>

namespace tonearm {

/// SHA-256 of a whole file in lower-case hexadecimal. Blocks. Throws std::system_error, and
/// CancellationError as soon as a stop is requested.
QString fileChecksum(const QString &path, const std::stop_token &stop);

} // namespace tonearm
