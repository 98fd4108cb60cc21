// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/DiscTrack.h"

#include <QString>

#include <chrono>
#include <mutex>
#include <optional>

namespace tonearm {

/// When a read counts as stalled. Shorter times are for tests.
struct StallTimes
{
    /// Between two looks at the output file.
    std::chrono::milliseconds poll{400};
    /// How long the file may stay as it is. A drive may take minutes over one bad place.
    std::chrono::milliseconds patience{std::chrono::seconds(150)};
};

/// Follows the size of an output file from look to look.
class OutputGrowth
{
public:
    explicit OutputGrowth(StallTimes times);

    /// Takes the size after one more poll; whether the file hasn't grown for too long. The first look counts
    /// as growth, even of a file that isn't there.
    bool isStalledAt(qint64 size);

private:
    StallTimes m_times;
    qint64 m_lastSize = -1;
    std::chrono::milliseconds m_stalled{0};
};

/// Where it is kept that a read has stalled. Thread-safe.
class StallWatch
{
public:
    /// To be called once, with the size of the output.
    void declareStalled(qint64 bytes);

    /// The size at which the read was declared stalled; nothing if it wasn't.
    std::optional<qint64> bytes() const;

private:
    mutable std::mutex m_lock;
    std::optional<qint64> m_bytes;
};

/// How the stall of a track's read is told to the user.
QString stallMessage(const DiscTrack &track, qint64 bytes, qint64 expectedBytes);

} // namespace tonearm
