// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <functional>
#include <vector>

namespace tonearm::test {

/// Beats every millisecond while it runs the event loop of its thread, and keeps how long it was kept
/// from beating. Unlike Qt's own helpers for waiting it never sleeps, so that all it measures is the
/// work of the thread and what the machine makes of it.
class Heartbeat
{
public:
    struct Gap
    {
        /// By the clock: what a user notices.
        std::chrono::microseconds elapsed{0};
        /// By the thread's own processor time: what doesn't depend on what else the machine does.
        std::chrono::microseconds worked{0};
    };

    Heartbeat()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(1);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
    }

    /// Runs the event loop until something holds, which is looked at between the beats; false if it
    /// doesn't in time.
    bool runUntil(const std::function<bool()> &condition,
                  std::chrono::seconds patience = std::chrono::seconds(60))
    {
        QElapsedTimer running;
        running.start();
        bool holds = false;
        QEventLoop loop;
        m_afterBeat = [&] {
            holds = condition();
            if (holds || running.hasExpired(std::chrono::milliseconds(patience).count()))
                loop.quit();
        };
        start();
        loop.exec();
        m_timer.stop();
        return holds;
    }

    /// Has each of a number of steps done from the event loop, one after the other with beats between.
    void run(int count, const std::function<void(int)> &step)
    {
        // So many beats after a step what it has set off is done too: layouts, painting.
        constexpr int beatsBetween = 3;
        int beats = 0;
        runUntil([&] {
            if (beats % beatsBetween == 0 && beats / beatsBetween < count)
                QTimer::singleShot(0, &m_timer, [&step, index = beats / beatsBetween] { step(index); });
            return ++beats > (count + 1) * beatsBetween;
        });
    }

    /// The longest of each; they needn't belong to the same gap.
    const Gap &longest() const { return m_longest; }

    /// How many gaps were longer than that by the clock.
    int longerThan(std::chrono::microseconds limit) const
    {
        return static_cast<int>(
            std::count_if(m_gaps.begin(), m_gaps.end(), [&](auto gap) { return gap > limit; }));
    }

    void reset()
    {
        m_longest = {};
        m_gaps.clear();
    }

private:
    static std::chrono::microseconds now(clockid_t clock)
    {
        timespec time = {};
        ::clock_gettime(clock, &time);
        return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::seconds(time.tv_sec) +
                                                                     std::chrono::nanoseconds(time.tv_nsec));
    }

    void start()
    {
        m_lastElapsed = now(CLOCK_MONOTONIC);
        m_lastWorked = now(CLOCK_THREAD_CPUTIME_ID);
        m_timer.start();
    }

    void beat()
    {
        const auto elapsed = now(CLOCK_MONOTONIC);
        const auto worked = now(CLOCK_THREAD_CPUTIME_ID);
        m_gaps.push_back(elapsed - m_lastElapsed);
        m_longest.elapsed = std::max(m_longest.elapsed, elapsed - m_lastElapsed);
        m_longest.worked = std::max(m_longest.worked, worked - m_lastWorked);
        m_lastElapsed = elapsed;
        m_lastWorked = worked;
        m_afterBeat();
    }

    QTimer m_timer;
    std::function<void()> m_afterBeat;
    std::chrono::microseconds m_lastElapsed{0};
    std::chrono::microseconds m_lastWorked{0};
    Gap m_longest;
    std::vector<std::chrono::microseconds> m_gaps;
};

} // namespace tonearm::test
