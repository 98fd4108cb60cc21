// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/ChildProcess.h"

#include <mutex>
#include <optional>

namespace tonearm {

/// Makes a cancellation safe against a launch that is still under way: whichever of the two comes
/// second sees the other and ends the child. Private to one run; thread-safe.
class LaunchGate
{
public:
    /// Remembers the cancellation, and ends the child if it has been launched.
    void cancel();

    /// Takes the child once launched, and ends it if the run has been cancelled meanwhile. The gate
    /// keeps the child for its own life; the reference stays valid.
    const ChildProcess &store(ChildProcess child);

    bool isCancelled() const;

private:
    mutable std::mutex m_lock;
    std::optional<ChildProcess> m_process;
    bool m_isCancelled = false;
};

} // namespace tonearm
