// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Cancellation.h"

#include <QCoroTask>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>
#include <type_traits>
#include <utility>

namespace tonearm {

/// A thread for calls that a drive may let hang for ever.
///
/// Confined to one thread with an event loop, which never blocks on the calls. Destruction waits for the
/// thread, unless a call was left behind on it: that one keeps the thread, and what it has captured,
/// until it returns.
class StallableThread
{
public:
    /// A call that is cancelled has so long to return all the same.
    explicit StallableThread(std::chrono::milliseconds grace);
    ~StallableThread();
    StallableThread(const StallableThread &) = delete;
    StallableThread &operator=(const StallableThread &) = delete;

    /// Runs a function on the thread and suspends until it has returned; gives its result or its
    /// exception. If a stop is requested and the grace passes, the function is left behind and
    /// CancellationError thrown; any later call throws that too. One call at a time.
    ///
    /// The function must own all that it touches. Name it before the co_await: GCC 12 destroys what a
    /// temporary has captured twice.
    template <typename Function>
    auto run(Function function, std::stop_token stop) -> QCoro::Task<std::invoke_result_t<Function>>
    {
        using Result = std::invoke_result_t<Function>;
        const auto task = std::make_shared<std::packaged_task<Result()>>(std::move(function));
        std::future<Result> result = task->get_future();
        const std::function<void()> job = [task] { (*task)(); };
        co_await finish(job, stop);
        co_return result.get();
    }

private:
    // What the thread shares with this object, which it may outlive.
    struct Work
    {
        std::mutex mutex;
        std::condition_variable changed;
        std::function<void()> next;
        bool isClosing = false;
    };

    static void serve(const std::shared_ptr<Work> &work);
    void post(std::function<void()> job);
    QCoro::Task<> finish(std::function<void()> job, std::stop_token stop);

    const std::chrono::milliseconds m_grace;
    const std::shared_ptr<Work> m_work;
    bool m_isLeftBehind = false;
    std::thread m_thread;
};

} // namespace tonearm
