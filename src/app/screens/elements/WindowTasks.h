// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>

#include <functional>
#include <stop_token>

namespace tonearm {

/// The tasks of an object that may go at any moment, inside an event handler too: a window, say.
///
/// Destruction asks the tasks to stop and leaves them to end by themselves. So a body calls
/// throwIfCancelled after each co_await, before it touches its owner again, and whatever it waits for
/// outlives that wait. The owner is destroyed on the thread that it lives on.
class WindowTasks
{
public:
    using Body = std::function<QCoro::Task<>(std::stop_token)>;

    WindowTasks() = default;
    ~WindowTasks();
    WindowTasks(const WindowTasks &) = delete;
    WindowTasks &operator=(const WindowTasks &) = delete;

    /// Starts a task; its first step runs inside this call. The body handles its own failures; a
    /// CancellationError may leave it and ends it quietly.
    void start(Body body);

private:
    std::stop_source m_stop;
};

} // namespace tonearm
