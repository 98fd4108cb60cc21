// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroFuture>
#include <QCoroTask>

#include <QPromise>
#include <QThread>

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace tonearm {

/// A thread with an event loop on which a service runs its operations one at a time; at each of an
/// operation's suspensions other operations may run. Destruction waits for all of them.
class SerialExecutor
{
public:
    /// `name` shows in debuggers.
    explicit SerialExecutor(const QString &name);
    ~SerialExecutor();
    SerialExecutor(const SerialExecutor &) = delete;
    SerialExecutor &operator=(const SerialExecutor &) = delete;

    /// Runs an operation, a function without arguments that returns a QCoro::Task, on the executor.
    /// The caller suspends, and gets the result or the exception on its own thread, which needs an
    /// event loop. Callable from any thread.
    template <typename Operation> auto run(Operation operation) -> std::invoke_result_t<Operation>
    {
        using Result = typename std::invoke_result_t<Operation>::value_type;
        auto promise = std::make_shared<QPromise<Result>>();
        promise->start();
        QFuture<Result> future = promise->future();
        // A task awaited on one thread and finished on another would be a race; the future is the
        // hand-over between the two.
        post([this, operation = std::move(operation), promise]() mutable {
            drive<Result>(std::move(operation), std::move(promise));
        });
        co_return co_await future;
    }

private:
    template <typename Result, typename Operation>
    QCoro::Task<> drive(Operation operation, std::shared_ptr<QPromise<Result>> promise)
    {
        ++m_underWay;
        try {
            if constexpr (std::is_void_v<Result>)
                co_await operation();
            else
                promise->addResult(co_await operation());
        } catch (...) {
            promise->setException(std::current_exception());
        }
        promise->finish();
        --m_underWay;
        quitIfDone();
    }

    void post(std::function<void()> step);
    void quitIfDone();

    QThread m_thread;
    // Lives on the thread and receives what is posted to it.
    QObject *m_context;
    // Both are touched on the executor's thread only.
    int m_underWay = 0;
    bool m_isClosing = false;
};

} // namespace tonearm
