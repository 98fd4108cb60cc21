// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/WindowTasks.h"

#include "helpers/Await.h"
#include "support/Cancellation.h"

#include <gtest/gtest.h>

#include <QCoroFuture>

#include <QPromise>

#include <memory>
#include <optional>

namespace tonearm {

using namespace test;

namespace {

// A task that waits for what the test lets come, and what has become of it.
struct WindowTasksTest : testing::Test
{
    WindowTasksTest() { promise->start(); }

    void startWaiting()
    {
        tasks->start([this](std::stop_token stop) -> QCoro::Task<> {
            hasBegun = true;
            QFuture<void> waiting = promise->future();
            co_await waiting;
            hasGoneOn = true;
            throwIfCancelled(stop);
            hasEnded = true;
        });
    }

    std::unique_ptr<QPromise<void>> promise = std::make_unique<QPromise<void>>();
    std::optional<WindowTasks> tasks{std::in_place};
    bool hasBegun = false;
    bool hasGoneOn = false;
    bool hasEnded = false;
};

} // namespace

TEST_F(WindowTasksTest, BeginAtOnceAndEnd)
{
    startWaiting();
    EXPECT_TRUE(hasBegun);
    promise->finish();
    EXPECT_TRUE(eventually([this] { return hasEnded; }));
}

TEST_F(WindowTasksTest, AreNotWaitedForByTheirOwner)
{
    startWaiting();
    tasks.reset();
    EXPECT_FALSE(hasGoneOn) << "it is left where it is";
    promise->finish();
    EXPECT_TRUE(eventually([this] { return hasGoneOn; }));
    EXPECT_FALSE(hasEnded) << "and ends where it sees the request";
}

TEST_F(WindowTasksTest, AreToldToStop)
{
    bool wasTold = false;
    tasks->start([&](std::stop_token stop) -> QCoro::Task<> {
        const std::stop_callback onStop(stop, [&] { wasTold = true; });
        QFuture<void> waiting = promise->future();
        co_await waiting;
        hasGoneOn = true;
    });
    EXPECT_FALSE(wasTold);
    tasks.reset();
    EXPECT_TRUE(wasTold);
    promise->finish();
    EXPECT_TRUE(eventually([this] { return hasGoneOn; }));
}

} // namespace tonearm
