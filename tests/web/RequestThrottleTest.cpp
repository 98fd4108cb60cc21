// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/RequestThrottle.h"

#include "helpers/Await.h"
#include "support/Cancellation.h"
#include "web/ManualTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tonearm {

using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

using Clock = RequestThrottle::Clock;

/// Callers of a throttle, and when each of them could go, in the order of their going.
struct Callers
{
    test::ManualTime time;
    RequestThrottle throttle;
    std::vector<Clock::duration> went;
    int cancelled = 0;

    explicit Callers(Clock::duration interval)
        : throttle(time.throttle(interval))
    {
    }

    QCoro::Task<> call(std::stop_token stop = {}, std::optional<Clock::duration> interval = std::nullopt)
    {
        try {
            co_await throttle.wait(interval, stop);
            went.push_back(time.elapsed());
        } catch (const CancellationError &) {
            ++cancelled;
        }
    }

    /// Lets time pass in steps, and whoever wakes in between go.
    void pass(Clock::duration duration, Clock::duration step = 500ms)
    {
        for (const Clock::duration end = time.elapsed() + duration; time.elapsed() < end;) {
            time.advance(step);
            // A sleep that has ended is resumed by the event loop.
            for (int round = 0; round < 10; ++round)
                QCoreApplication::processEvents();
        }
    }
};

} // namespace

TEST(RequestSlots, AreAnIntervalApart)
{
    const Clock::time_point start{100s};
    RequestSlots slots(start);
    EXPECT_EQ(slots.reserve(start, 3s), start);
    EXPECT_EQ(slots.reserve(start, 3s), start + 3s);
    EXPECT_EQ(slots.reserve(start + 1s, 3s), start + 6s);
}

TEST(RequestSlots, AreNeverInThePast)
{
    const Clock::time_point start{100s};
    RequestSlots slots(start);
    EXPECT_EQ(slots.reserve(start + 10s, 3s), start + 10s);
    EXPECT_EQ(slots.reserve(start + 13s, 3s), start + 13s);
    EXPECT_EQ(slots.reserve(start + 14s, 3s), start + 16s);
}

TEST(RequestSlots, KeepTheIntervalOfTheRequestBefore)
{
    const Clock::time_point start{100s};
    RequestSlots slots(start);
    EXPECT_EQ(slots.reserve(start, 10s), start);
    EXPECT_EQ(slots.reserve(start, 1s), start + 10s);
    EXPECT_EQ(slots.reserve(start, 1s), start + 11s);
}

TEST(RequestThrottle, SpacesOutThreeRequestsAtOnce)
{
    Callers callers(3s);
    const auto first = callers.call();
    const auto second = callers.call();
    const auto third = callers.call();
    callers.pass(10s);
    EXPECT_THAT(callers.went, ElementsAre(0s, 3s, 6s));
}

TEST(RequestThrottle, LetsARequestAfterAPauseGoAtOnceAndTheNextWait)
{
    Callers callers(3s);
    const auto first = callers.call();
    callers.pass(10s);
    const auto second = callers.call();
    EXPECT_THAT(callers.went, ElementsAre(0s, 10s));
    const auto third = callers.call();
    callers.pass(10s);
    EXPECT_THAT(callers.went, ElementsAre(0s, 10s, 13s));
}

TEST(RequestThrottle, LeavesTheSlotOfACancelledWaitTaken)
{
    Callers callers(3s);
    std::stop_source stop;
    const auto first = callers.call();
    const auto second = callers.call(stop.get_token());
    callers.pass(1s);
    stop.request_stop();
    EXPECT_TRUE(test::eventually([&] { return callers.cancelled == 1; }));
    const auto third = callers.call();
    callers.pass(10s);
    EXPECT_THAT(callers.went, ElementsAre(0s, 6s));
}

TEST(RequestThrottle, LeavesOtherWaitsAloneWhenOneIsCancelled)
{
    Callers callers(3s);
    std::stop_source stop;
    const auto first = callers.call();
    const auto second = callers.call(stop.get_token());
    const auto third = callers.call();
    stop.request_stop();
    callers.pass(10s);
    EXPECT_THAT(callers.went, ElementsAre(0s, 6s));
    EXPECT_EQ(callers.cancelled, 1);
}

TEST(RequestThrottle, TakesAnotherIntervalForOneCall)
{
    Callers callers(3s);
    const auto first = callers.call({}, 5s);
    const auto second = callers.call();
    const auto third = callers.call();
    callers.pass(10s);
    EXPECT_THAT(callers.went, ElementsAre(0s, 5s, 8s));
}

TEST(RequestThrottle, IsNotFooledByASleepThatEndsEarly)
{
    test::ManualTime time;
    std::vector<std::chrono::milliseconds> sleeps;
    const auto impatient = [&](std::chrono::milliseconds duration, std::stop_token) -> QCoro::Task<> {
        sleeps.push_back(duration);
        time.advance(duration - (sleeps.size() == 1 ? 40ms : 0ms));
        co_return;
    };
    RequestThrottle throttle(
        1s, [&] { return time.now(); }, impatient);
    test::await(throttle.wait(std::nullopt, {}));
    test::await(throttle.wait(std::nullopt, {}));
    EXPECT_THAT(sleeps, ElementsAre(1000ms, 40ms));
    EXPECT_EQ(time.elapsed(), 1s);
}

TEST(RequestThrottle, NeverSleepsLessThanTheTimeThatIsLeft)
{
    test::ManualTime time;
    const auto sleep = [&](std::chrono::milliseconds duration, std::stop_token) -> QCoro::Task<> {
        time.advance(duration);
        co_return;
    };
    RequestThrottle throttle(
        1s, [&] { return time.now(); }, sleep);
    test::await(throttle.wait(std::nullopt, {}));
    time.advance(999ms + 400us);
    test::await(throttle.wait(std::nullopt, {}));
    EXPECT_GE(time.elapsed(), 1s);
}

TEST(RequestThrottle, WaitsByTheRealClock)
{
    RequestThrottle throttle(30ms);
    const Clock::time_point start = Clock::now();
    for (int request = 0; request < 3; ++request)
        test::await(throttle.wait(std::nullopt, {}));
    EXPECT_GE(Clock::now() - start, 60ms);
}

} // namespace tonearm
