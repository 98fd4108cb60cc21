// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUnhandledException>
#include <QtConcurrentRun>

#include <QCoroFuture>
#include <QCoroTask>

#include <exception>
#include <type_traits>
#include <utility>

namespace tonearm {

/// How many steps can be under way in the background at once. Most of them wait for a disk and need no
/// core, and each that waits for a network folder that has gone keeps its thread for minutes.
inline constexpr int backgroundThreads = 32;

/// Lets that many steps run; Qt allows one for each core, so that on a small machine two looks at a dead
/// folder would stop all others. To be called once, at the program's start.
void makeRoomInBackground();

/// Runs a function that may block (files, decoding) on a pool thread; the caller is resumed on its own
/// thread with the result or the exception. The function must own everything it touches.
///
/// Name the function before the co_await: GCC 12 destroys what a temporary has captured twice.
template <typename Function>
auto inBackground(Function function) -> QCoro::Task<std::invoke_result_t<Function>>
{
    try {
        co_return co_await QtConcurrent::run(std::move(function));
    } catch (const QUnhandledException &wrapped) {
        // What Qt makes of an exception whose type isn't one of its own.
        std::rethrow_exception(wrapped.exception());
    }
}

} // namespace tonearm
