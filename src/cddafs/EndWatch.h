// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/FileDescriptor.h"

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <optional>
#include <thread>

namespace tonearm {

/// Notices, on a thread of its own, that the program has no reason to go on: the process that started it
/// has ended, or the disc is gone.
class EndWatch
{
public:
    /// `parent` is the process to watch, if any; `isPresent` tells whether the disc is there and is asked
    /// every `interval`; `onEnd` is called when there is no reason to go on, and again every `interval`
    /// until this object goes. Both calls come from the thread.
    EndWatch(std::optional<pid_t> parent, std::function<bool()> isPresent, std::function<void()> onEnd,
             std::chrono::milliseconds interval = std::chrono::seconds(2));
    ~EndWatch();

private:
    // False if this watch is stopped meanwhile.
    bool wait(std::chrono::milliseconds interval) const;
    // Waits until the program has no reason to go on; false if this watch is stopped first.
    bool isNeedless(const std::function<bool()> &isPresent, std::chrono::milliseconds interval) const;

    FileDescriptor m_parent;
    Pipe m_stop;
    std::thread m_thread;
};

} // namespace tonearm
