// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// A file's size in words, in decimal units: "600 KB" below a megabyte, "1.2 MB" from there on, however
/// large. Rounded half up, but a file that holds anything is never less than "1 KB"; an empty one is "0 KB".
QString byteCountText(qint64 byteCount);

} // namespace tonearm
