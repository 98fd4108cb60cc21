// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>

#include <exception>

namespace tonearm {

/// Awaits two tasks that run side by side. Both have ended afterwards, however they end; of two failures the
/// first task's is thrown.
inline QCoro::Task<> bothOf(QCoro::Task<> first, QCoro::Task<> second)
{
    std::exception_ptr failure;
    try {
        co_await first;
    } catch (...) {
        failure = std::current_exception();
    }
    try {
        co_await second;
    } catch (...) {
        if (!failure)
            failure = std::current_exception();
    }
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace tonearm
