// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace tonearm {

/// Reads a whole text as a finite decimal number with a point. White space, a text that goes on after
/// the number, and the empty text give nothing. Independent of the locale.
std::optional<double> parseDouble(QStringView text);

/// Reads a whole text as an optional sign and decimal digits. Anything else, and a value beyond a
/// signed 64-bit integer, gives nothing. Independent of the locale.
std::optional<qint64> parseInteger(QStringView text);

/// The number with `decimals` places and a point, whatever the locale.
QString fixedPoint(double value, int decimals);

/// The number in decimal, with zeros in front up to `digits` places; a minus takes one of them.
QString padded(qint64 value, int digits);

/// A whole number of seconds, of any size but finite, as minutes and seconds: "75:09". An hour counts as 60
/// minutes.
QString minutesAndSeconds(double wholeSeconds);

} // namespace tonearm
