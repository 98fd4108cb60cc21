// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>
#include <mutex>

namespace tonearm {

/// Turns the progress lines of one ffmpeg run into fractions of its length. Thread-safe.
class ProgressReporter
{
public:
    /// Takes a fraction from 0 to 1, on the thread that handles the line. No lock is held meanwhile.
    using Callback = std::function<void(double)>;

    /// `duration` is the length of the output in seconds. Without one, and without a callback, nothing
    /// is ever reported.
    ProgressReporter(double duration, Callback onFractionComplete);

    /// Takes one line of ffmpeg's stderr; any other than a progress line is ignored. Small steps forward
    /// and any step back aren't reported, the end is as often as it comes.
    void handle(const QString &line);

    /// The last position that a line told, in seconds; 0 before the first.
    double position() const;

private:
    void keep(double seconds);
    bool isWorthReporting(double fraction);

    double m_duration;
    Callback m_onFractionComplete;
    mutable std::mutex m_lock;
    double m_position = 0;
    double m_lastReported = 0;
};

} // namespace tonearm
