// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/LenientString.h"

#include <cmath>
#include <optional>

namespace tonearm {

namespace {

QString wholePart(double number)
{
    // 2^63, the first number beyond a signed 64-bit integer; its negative is still within.
    constexpr double limit = 0x1p63;
    const double whole = std::trunc(number);
    const bool fits = whole >= -limit && whole < limit;
    return fits ? QString::number(static_cast<qint64>(whole)) : QString();
}

} // namespace

LenientString LenientString::read(const QJsonValue &value)
{
    if (value.isString())
        return {value.toString()};
    // Tried first: a double wouldn't hold every digit of a large integer.
    if (const std::optional<qint64> whole = wholeNumber(value))
        return {QString::number(*whole)};
    return {value.isDouble() ? wholePart(value.toDouble()) : QString()};
}

LenientString LenientString::find(const JsonNode &object, const QString &key)
{
    const std::optional<JsonNode> node = object.find(key);
    return node ? read(node->value()) : LenientString();
}

} // namespace tonearm
