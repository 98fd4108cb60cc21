// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "web/RequestThrottle.h"

#include <QPromise>

#include <memory>
#include <vector>

namespace tonearm::test {

/// A clock that stands still until it is moved, and sleeps that end when it has come far enough.
class ManualTime
{
public:
    using Clock = RequestThrottle::Clock;

    /// How much of the time since the clock's making has passed.
    Clock::duration elapsed() const { return m_now - m_start; }

    Clock::time_point now() const { return m_now; }

    void advance(Clock::duration time);

    QCoro::Task<> sleep(std::chrono::milliseconds time, std::stop_token stop);

    /// How many sleeps haven't ended.
    int sleeperCount() const;

    RequestThrottle throttle(Clock::duration minimumInterval);

private:
    struct Sleeper
    {
        Clock::time_point end;
        QPromise<void> promise;
    };

    const Clock::time_point m_start{std::chrono::hours(1)};
    Clock::time_point m_now = m_start;
    std::vector<std::weak_ptr<Sleeper>> m_sleepers;
};

} // namespace tonearm::test
