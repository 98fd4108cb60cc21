// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Background.h"

#include <QCoroTask>

#include <QFile>
#include <QString>

#include <exception>

namespace tonearm {

/// Deletes a file. A failure isn't told.
inline QCoro::Task<> removeFile(QString path)
{
    // Named, because GCC 12 destroys a closure that is made inside a co_await expression twice.
    const auto removal = [path] { return QFile::remove(path); };
    co_await inBackground(removal);
}

/// Awaits a task; if it fails or is cancelled, deletes the file that it was making before that goes on.
template <typename Result> QCoro::Task<Result> removingOnFailure(QCoro::Task<Result> task, QString path)
{
    std::exception_ptr failure;
    try {
        co_return co_await task;
    } catch (...) {
        failure = std::current_exception();
    }
    co_await removeFile(path);
    std::rethrow_exception(failure);
}

} // namespace tonearm
