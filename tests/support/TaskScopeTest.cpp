// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/TaskScope.h"

#include "helpers/Await.h"
#include "support/Background.h"
#include "support/Cancellation.h"

#include <gtest/gtest.h>

#include <QCoroTimer>

#include <chrono>
#include <optional>

namespace tonearm {

using namespace std::chrono_literals;
using test::eventually;

TEST(TaskScope, TakesTheFirstStepAfterTheCallerHasStoredTheHandle)
{
    TaskScope scope;
    bool ran = false;
    scope.start([&](std::stop_token) -> QCoro::Task<> {
        ran = true;
        co_return;
    });
    EXPECT_FALSE(ran);
    EXPECT_TRUE(eventually([&] { return ran; }));
}

TEST(TaskScope, KeepsWhatTheBodyCapturedUntilTheTaskEnds)
{
    TaskScope scope;
    const auto payload = std::make_shared<int>(7);
    int seen = 0;
    scope.start([payload, &seen](std::stop_token) -> QCoro::Task<> {
        co_await QCoro::sleepFor(1ms);
        seen = *payload;
    });
    EXPECT_TRUE(eventually([&] { return seen == 7; }));
    EXPECT_TRUE(eventually([&] { return payload.use_count() == 1; }));
}

TEST(TaskScope, TellsTheTaskOfACancellation)
{
    TaskScope scope;
    bool sawRequest = false;
    const TaskHandle task = scope.start([&](std::stop_token stop) -> QCoro::Task<> {
        co_await QCoro::sleepFor(1ms);
        sawRequest = stop.stop_requested();
    });
    task.cancel();
    EXPECT_TRUE(eventually([&] { return sawRequest; }));
}

TEST(TaskScope, EndsQuietlyWhenACancellationLeavesTheBody)
{
    TaskScope scope;
    const auto held = std::make_shared<int>();
    const TaskHandle task = scope.start([held](std::stop_token stop) -> QCoro::Task<> {
        co_await QCoro::sleepFor(1ms);
        throwIfCancelled(stop);
    });
    task.cancel();
    EXPECT_TRUE(eventually([&] { return held.use_count() == 1; }));
}

TEST(TaskScope, CancelsAndWaitsForEveryTaskWhenItGoes)
{
    int ended = 0;
    {
        TaskScope scope;
        for (int index = 0; index < 3; ++index) {
            scope.start([&](std::stop_token stop) -> QCoro::Task<> {
                while (!stop.stop_requested())
                    co_await QCoro::sleepFor(1ms);
                ++ended;
            });
        }
    }
    EXPECT_EQ(ended, 3);
}

TEST(TaskHandle, EqualsItsCopiesAndNoOther)
{
    const TaskHandle task;
    const TaskHandle copy = task;
    EXPECT_EQ(task, copy);
    EXPECT_NE(task, TaskHandle());
    copy.cancel();
    EXPECT_TRUE(task.stopToken().stop_requested());
}

TEST(Background, RunsElsewhereAndComesBackWithTheResult)
{
    QThread *const caller = QThread::currentThread();
    QThread *worker = nullptr;
    QThread *resumed = nullptr;
    const auto task = [&]() -> QCoro::Task<int> {
        const int result = co_await inBackground([&worker] {
            worker = QThread::currentThread();
            return 42;
        });
        resumed = QThread::currentThread();
        co_return result;
    };
    EXPECT_EQ(test::await(task()), 42);
    EXPECT_NE(worker, caller);
    EXPECT_EQ(resumed, caller);
}

TEST(Background, BringsExceptionsOfEveryTypeBack)
{
    const auto cancelled =
        test::awaitError<CancellationError>(inBackground([] { throw CancellationError{}; }));
    EXPECT_TRUE(cancelled.has_value());
    const auto system = test::awaitError<std::system_error>(
        inBackground([]() -> int { throw std::system_error(ENOSPC, std::generic_category()); }));
    ASSERT_TRUE(system.has_value());
    EXPECT_EQ(system->code().value(), ENOSPC);
}

} // namespace tonearm
