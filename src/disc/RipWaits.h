// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/InterruptibleSleep.h"

#include <chrono>
#include <functional>

namespace tonearm {

/// How long a reader of tracks waits for what.
struct RipWaits
{
    using Sleep = std::function<QCoro::Task<>(std::chrono::milliseconds, std::stop_token)>;

    /// Before a failed reading is tried again.
    std::chrono::milliseconds beforeRetry{100};
    /// For a drive to answer what was cancelled meanwhile.
    std::chrono::milliseconds afterStop{50};
    Sleep sleep = &interruptibleSleep;
};

} // namespace tonearm
