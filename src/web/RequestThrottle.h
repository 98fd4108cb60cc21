// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>

namespace tonearm {

/// Hands out the instants at which requests may go, an interval apart in the order of asking.
class RequestSlots
{
public:
    using Clock = std::chrono::steady_clock;

    /// The first slot is free from `start` on.
    explicit RequestSlots(Clock::time_point start)
        : m_nextAvailableSlot(start)
    {
    }

    /// Takes the next slot, which is never before `now`, and keeps the one after it an interval away.
    Clock::time_point reserve(Clock::time_point now, Clock::duration interval);

private:
    Clock::time_point m_nextAvailableSlot;
};

/// Keeps a client under its service's rate limit. Confined to one thread, which needs an event loop.
class RequestThrottle
{
public:
    using Clock = RequestSlots::Clock;
    using Now = std::function<Clock::time_point()>;
    /// Suspends for a while, and throws CancellationError when a stop is requested.
    using Sleep = std::function<QCoro::Task<>(std::chrono::milliseconds, std::stop_token)>;

    explicit RequestThrottle(Clock::duration minimumInterval);
    RequestThrottle(Clock::duration minimumInterval, Now clock, Sleep sleep);

    /// Suspends until the caller's slot. `interval`, if given, stands in for the minimum interval. A
    /// cancelled wait throws CancellationError, and its slot stays taken.
    QCoro::Task<> wait(std::optional<Clock::duration> interval, std::stop_token stop);

private:
    Now m_clock;
    Clock::duration m_minimumInterval;
    RequestSlots m_slots;
    Sleep m_sleep;
};

} // namespace tonearm
