// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/ManualTime.h"

#include "support/Cancellation.h"

#include <QCoroFuture>

namespace tonearm::test {

void ManualTime::advance(Clock::duration time)
{
    m_now += time;
    for (const auto &weak : m_sleepers) {
        if (const auto sleeper = weak.lock(); sleeper && sleeper->end <= m_now)
            sleeper->promise.finish();
    }
}

QCoro::Task<> ManualTime::sleep(std::chrono::milliseconds time, std::stop_token stop)
{
    const auto sleeper = std::make_shared<Sleeper>(Sleeper{.end = m_now + time, .promise = {}});
    sleeper->promise.start();
    m_sleepers.push_back(sleeper);
    const std::stop_callback onStop(stop, [&] { sleeper->promise.finish(); });
    co_await sleeper->promise.future();
    throwIfCancelled(stop);
}

int ManualTime::sleeperCount() const
{
    return static_cast<int>(std::count_if(m_sleepers.begin(), m_sleepers.end(),
                                          [](const auto &weak) { return !weak.expired(); }));
}

RequestThrottle ManualTime::throttle(Clock::duration minimumInterval)
{
    return {minimumInterval, [this] { return now(); },
            [this](std::chrono::milliseconds time, std::stop_token stop) { return sleep(time, stop); }};
}

} // namespace tonearm::test
