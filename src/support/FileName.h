// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// The longest name of one file or folder that Linux file systems take, in bytes of UTF-8 (NAME_MAX).
inline constexpr qsizetype maximumNameBytes = 255;

/// Shortens a stem at a character's boundary until stem and ending fit into one file name.
/// A name that fits is returned as it is. The ending is never shortened.
QString fittedFileName(const QString &stem, const QString &ending = {});

} // namespace tonearm
