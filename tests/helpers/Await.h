// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>

#include <QTest>

#include <exception>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

namespace tonearm::test {

/// Runs the event loop until something holds; false if it doesn't in time.
inline bool eventually(const std::function<bool()> &condition, int patienceMilliseconds = 10000)
{
    return QTest::qWaitFor(condition, patienceMilliseconds);
}

/// Runs the event loop until a task has ended; returns its result or throws what it threw.
template <typename Result> Result await(QCoro::Task<Result> task)
{
    std::optional<std::conditional_t<std::is_void_v<Result>, std::monostate, Result>> result;
    std::exception_ptr error;
    const auto follow = [&]() -> QCoro::Task<> {
        try {
            if constexpr (std::is_void_v<Result>) {
                co_await task;
                result.emplace();
            } else {
                result = co_await task;
            }
        } catch (...) {
            error = std::current_exception();
        }
    };
    const QCoro::Task<> following = follow();
    // A task that never ends would go on using this frame, so there is no going on without it.
    if (!eventually([&] { return result || error; }, 60000))
        qFatal("A task didn't end within a minute.");
    if (error)
        std::rethrow_exception(error);
    if constexpr (!std::is_void_v<Result>)
        return std::move(*result);
}

/// The error of type `Error` that a call throws; nothing if it throws none.
template <typename Error, typename Call> std::optional<Error> errorOf(Call call)
{
    try {
        static_cast<void>(call());
    } catch (const Error &error) {
        return error;
    }
    return std::nullopt;
}

/// The error of type `Error` that a task ends with; nothing if it ends well. Others pass through.
template <typename Error, typename Result> std::optional<Error> awaitError(QCoro::Task<Result> task)
{
    return errorOf<Error>([&] { return await(std::move(task)); });
}

} // namespace tonearm::test
