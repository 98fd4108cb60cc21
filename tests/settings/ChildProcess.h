// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <functional>

namespace tonearm::test {

/// A copy of this process that runs a function and ends. Only for tests without other threads.
class ChildProcess
{
public:
    explicit ChildProcess(const std::function<void()> &body);
    /// Kills it if it still runs.
    ~ChildProcess();
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    /// Whether it has ended by now.
    bool hasEnded();

    /// Waits for its end; true if its function ran through without an exception.
    bool succeeded();

    void kill() const;

private:
    void collect(int options);

    pid_t m_id;
    int m_status = 0;
    bool m_isCollected = false;
};

} // namespace tonearm::test
