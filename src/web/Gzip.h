// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>

namespace tonearm {

/// What a gzip file holds; nothing if it is damaged or cut off. Unpacking ends at one byte more than the
/// limit, which is how a caller sees that there is more.
std::optional<QByteArray> unpackedGzip(QByteArray packed, qint64 limit);

} // namespace tonearm
