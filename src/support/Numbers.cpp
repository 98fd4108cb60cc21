// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

template <typename Number> std::optional<Number> parseWhole(QStringView text)
{
    // from_chars takes a minus but no plus; a second sign after the plus must still fail.
    if (text.startsWith(u'+')) {
        text = text.sliced(1);
        if (text.startsWith(u'-'))
            return std::nullopt;
    }
    const std::string bytes = text.toUtf8().toStdString();
    const char *const end = bytes.data() + bytes.size();
    Number value{};
    const auto [stopped, error] = std::from_chars(bytes.data(), end, value);
    if (error != std::errc{} || stopped != end || bytes.empty())
        return std::nullopt;
    return value;
}

} // namespace

std::optional<double> parseDouble(QStringView text)
{
    const std::optional<double> value = parseWhole<double>(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<qint64> parseInteger(QStringView text)
{
    return parseWhole<qint64>(text);
}

QString fixedPoint(double value, int decimals)
{
    // Rounds the number's exact value as printf does; QString::number rounds its shortest form.
    std::array<char, 400> digits{}; // the largest double has 309 digits before the point
    const std::to_chars_result printed = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                                       std::chars_format::fixed, decimals);
    return QString::fromLatin1(digits.data(), printed.ptr - digits.data());
}

QString padded(qint64 value, int digits)
{
    constexpr int decimal = 10;
    return u"%1"_s.arg(value, digits, decimal, QChar(u'0'));
}

QString minutesAndSeconds(double wholeSeconds)
{
    constexpr double secondsPerMinute = 60;
    // Adding nothing makes a zero of a negative zero, which would show its sign.
    const double minutes = std::trunc(wholeSeconds / secondsPerMinute) + 0.0;
    const auto seconds = static_cast<qint64>(std::fmod(wholeSeconds, secondsPerMinute));
    return fixedPoint(minutes, 0) + u':' + padded(seconds, 2);
}

} // namespace tonearm
