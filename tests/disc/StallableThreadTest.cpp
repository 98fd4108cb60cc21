// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/StallableThread.h"

#include "disc/FaultyFiles.h"
#include "helpers/Await.h"

#include <gtest/gtest.h>

#include <QScopeGuard>

#include <stdexcept>

namespace tonearm {

using namespace std::chrono_literals;
using test::await;
using test::awaitError;
using test::Gate;

namespace {

constexpr std::chrono::milliseconds grace = 50ms;

} // namespace

TEST(StallableThread, RunsAllCallsOnOneOtherThread)
{
    StallableThread thread(grace);
    const auto call = [] { return std::this_thread::get_id(); };
    const auto first = await(thread.run(call, {}));
    EXPECT_NE(first, std::this_thread::get_id());
    EXPECT_EQ(await(thread.run(call, {})), first);
}

TEST(StallableThread, BringsFailuresToTheCaller)
{
    StallableThread thread(grace);
    const auto call = []() -> int { throw std::runtime_error("no"); };
    EXPECT_TRUE(awaitError<std::runtime_error>(thread.run(call, {})));
}

TEST(StallableThread, CompletesACancelledCallThatReturns)
{
    StallableThread thread(1h);
    std::stop_source stop;
    stop.request_stop();
    const auto call = [] { return 5; };
    EXPECT_EQ(await(thread.run(call, stop.get_token())), 5);
}

TEST(StallableThread, WaitsForACallThatIsCancelledFromAnotherThread)
{
    StallableThread thread(1h);
    std::stop_source stop;
    const auto call = [&] {
        stop.request_stop();
        return 5;
    };
    EXPECT_EQ(await(thread.run(call, stop.get_token())), 5);
}

TEST(StallableThread, LeavesBehindACancelledCallThatDoesNotReturn)
{
    const auto gate = std::make_shared<Gate>();
    const auto whatItHolds = std::make_shared<int>(0);
    {
        StallableThread thread(1ms);
        std::stop_source stop;
        const auto call = [gate, whatItHolds] { gate->pass(); };
        auto running = thread.run(call, stop.get_token());
        ASSERT_TRUE(test::eventually([&] { return gate->isReached(); }));
        stop.request_stop();
        EXPECT_TRUE(awaitError<CancellationError>(std::move(running)));
        EXPECT_TRUE(awaitError<CancellationError>(thread.run(call, {})));
    }
    EXPECT_GT(whatItHolds.use_count(), 1);
    gate->open();
    EXPECT_TRUE(test::eventually([&] { return whatItHolds.use_count() == 1; }));
}

} // namespace tonearm
