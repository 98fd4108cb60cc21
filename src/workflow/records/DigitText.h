// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// The first four numeric characters that stand in a row, or the empty text: "1969" of "May 1969".
QString firstFourDigits(const QString &text);

/// All numeric characters of the text, read as one positive decimal number and written without leading
/// zeros. The empty text if they aren't ASCII digits or the value is none from 1 to the largest signed
/// 64-bit integer.
QString digitsOnlyNumber(const QString &text);

} // namespace tonearm
