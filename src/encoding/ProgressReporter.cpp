// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/ProgressReporter.h"

#include "support/Numbers.h"
#include "support/Text.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Keeps the interface's updates few.
constexpr double smallestStep = 0.005;
constexpr double microsecondsPerSecond = 1'000'000;
constexpr double sexagesimal = 60;

// The sign counts, not the value: "-00" stands for the hours of a time before the start.
std::optional<double> parseNonNegative(QStringView text)
{
    const std::optional<double> value = parseDouble(text);
    return value && !std::signbit(*value) ? value : std::nullopt;
}

// "01:02:03.5", "02:03.5" or "3.5".
std::optional<double> secondsOfClock(const QString &text)
{
    const QStringList pieces = text.split(u':', Qt::SkipEmptyParts);
    if (pieces.isEmpty() || pieces.size() > 3)
        return std::nullopt;
    double seconds = 0;
    for (const QString &piece : pieces) {
        const std::optional<double> value = parseNonNegative(piece);
        if (!value)
            return std::nullopt;
        seconds = seconds * sexagesimal + *value;
    }
    return seconds;
}

std::optional<double> secondsDone(const QString &line)
{
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 1 || equals == line.size() - 1)
        return std::nullopt;
    const QString key = trimmedBlanks(line.first(equals));
    const QString value = trimmedBlanks(line.sliced(equals + 1));
    if (key == u"out_time_us"_s) {
        const std::optional<double> microseconds = parseNonNegative(value);
        return microseconds ? std::optional(*microseconds / microsecondsPerSecond) : std::nullopt;
    }
    if (key == u"out_time"_s)
        return secondsOfClock(value);
    return std::nullopt;
}

} // namespace

ProgressReporter::ProgressReporter(double duration, Callback onFractionComplete)
    : m_duration(duration)
    , m_onFractionComplete(std::move(onFractionComplete))
{
}

void ProgressReporter::handle(const QString &line)
{
    const std::optional<double> seconds = secondsDone(line);
    if (!seconds)
        return;
    keep(*seconds);
    if (!m_onFractionComplete || !(m_duration > 0))
        return;
    const double fraction = std::clamp(*seconds / m_duration, 0.0, 1.0);
    if (isWorthReporting(fraction))
        m_onFractionComplete(fraction);
}

double ProgressReporter::position() const
{
    const std::lock_guard guard(m_lock);
    return m_position;
}

void ProgressReporter::keep(double seconds)
{
    const std::lock_guard guard(m_lock);
    m_position = seconds;
}

bool ProgressReporter::isWorthReporting(double fraction)
{
    const std::lock_guard guard(m_lock);
    if (fraction < 1 && fraction - m_lastReported < smallestStep)
        return false;
    m_lastReported = fraction;
    return true;
}

} // namespace tonearm
