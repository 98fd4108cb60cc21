// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/SerialExecutor.h"

#include "helpers/Await.h"
#include "support/Cancellation.h"

#include <gtest/gtest.h>

#include <QCoroTimer>

#include <chrono>
#include <vector>

namespace tonearm {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

TEST(SerialExecutor, RunsOnItsThreadAndResumesTheCallerOnItsOwn)
{
    SerialExecutor executor(u"test"_s);
    QThread *const caller = QThread::currentThread();
    const auto flow = [&]() -> QCoro::Task<bool> {
        QThread *const inside = co_await executor.run([]() -> QCoro::Task<QThread *> {
            co_await QCoro::sleepFor(1ms);
            co_return QThread::currentThread();
        });
        co_return inside != caller &&QThread::currentThread() == caller;
    };
    EXPECT_TRUE(test::await(flow()));
}

TEST(SerialExecutor, LetsOtherCallsInAtASuspension)
{
    SerialExecutor executor(u"test"_s);
    std::vector<int> order; // touched on the executor's thread only, until both calls have ended
    auto slow = executor.run([&]() -> QCoro::Task<void> {
        order.push_back(1);
        co_await QCoro::sleepFor(20ms);
        order.push_back(3);
    });
    auto quick = executor.run([&]() -> QCoro::Task<void> {
        order.push_back(2);
        co_return;
    });
    test::await(std::move(quick));
    test::await(std::move(slow));
    EXPECT_EQ(order, (std::vector{1, 2, 3}));
}

TEST(SerialExecutor, NeverRunsTwoCallsAtOnce)
{
    SerialExecutor executor(u"test"_s);
    int plain = 0; // would be a race without the executor, as ThreadSanitizer would tell
    std::vector<QCoro::Task<void>> calls;
    for (int index = 0; index < 200; ++index) {
        calls.push_back(executor.run([&]() -> QCoro::Task<void> {
            ++plain;
            co_return;
        }));
    }
    for (auto &call : calls)
        test::await(std::move(call));
    EXPECT_EQ(plain, 200);
}

TEST(SerialExecutor, BringsFailuresToTheCaller)
{
    SerialExecutor executor(u"test"_s);
    const auto error = test::awaitError<CancellationError>(executor.run([]() -> QCoro::Task<int> {
        co_await QCoro::sleepFor(1ms);
        throw CancellationError{};
    }));
    EXPECT_TRUE(error.has_value());
}

TEST(SerialExecutor, WaitsForItsOperationsWhenItGoes)
{
    std::atomic<bool> ended = false;
    {
        SerialExecutor executor(u"test"_s);
        auto call = executor.run([&]() -> QCoro::Task<void> {
            co_await QCoro::sleepFor(20ms);
            ended = true;
        });
    }
    EXPECT_TRUE(ended);
    // The discarded call's coroutine still waits for its result here; give it that.
    QCoreApplication::processEvents();
}

} // namespace tonearm
