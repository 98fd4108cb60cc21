// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/RequestThrottle.h"

#include "support/InterruptibleSleep.h"

#include <algorithm>
#include <utility>

namespace tonearm {

RequestSlots::Clock::time_point RequestSlots::reserve(Clock::time_point now, Clock::duration interval)
{
    const Clock::time_point slot = std::max(m_nextAvailableSlot, now);
    m_nextAvailableSlot = slot + interval;
    return slot;
}

RequestThrottle::RequestThrottle(Clock::duration minimumInterval)
    : RequestThrottle(minimumInterval, &Clock::now, &interruptibleSleep)
{
}

RequestThrottle::RequestThrottle(Clock::duration minimumInterval, Now clock, Sleep sleep)
    : m_clock(std::move(clock))
    , m_minimumInterval(minimumInterval)
    , m_slots(m_clock())
    , m_sleep(std::move(sleep))
{
}

QCoro::Task<> RequestThrottle::wait(std::optional<Clock::duration> interval, std::stop_token stop)
{
    Clock::time_point now = m_clock();
    const Clock::time_point slot = m_slots.reserve(now, interval.value_or(m_minimumInterval));
    // A timer of seconds may ring some milliseconds early.
    for (; now < slot; now = m_clock())
        co_await m_sleep(std::chrono::ceil<std::chrono::milliseconds>(slot - now), stop);
}

} // namespace tonearm
