// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>

#include <QObject>

#include <functional>
#include <list>
#include <memory>
#include <stop_token>

namespace tonearm {

/// Stands for a task that runs. Copies stand for the same task.
class TaskHandle
{
public:
    /// Asks the task to stop; it ends when it sees the request. Thread-safe.
    void cancel() const { m_source.request_stop(); }

    std::stop_token stopToken() const { return m_source.get_token(); }

    bool operator==(const TaskHandle &) const = default;

private:
    mutable std::stop_source m_source;
};

/// The tasks that an object has started on its own thread.
///
/// Destruction asks every task to stop and waits for all of them, running an event loop of its own: an
/// object that owns a scope must therefore be destroyed outside of event handlers, as an application
/// does after its main loop and a test at its end. Tasks may use the owner until they end, so the
/// scope is the owner's last member.
class TaskScope
{
public:
    using Body = std::function<QCoro::Task<>(std::stop_token)>;

    TaskScope();
    ~TaskScope();
    TaskScope(const TaskScope &) = delete;
    TaskScope &operator=(const TaskScope &) = delete;

    /// Starts a task; its first step runs from the event loop, never inside this call, so that the
    /// caller can store the handle first. The body handles its own failures; a CancellationError may
    /// leave it and ends it quietly.
    TaskHandle start(Body body);

private:
    using Running = std::list<TaskHandle>;

    // Shared with the tasks, whose last act is to take themselves off the list.
    std::shared_ptr<Running> m_running;
    QObject m_context;
};

} // namespace tonearm
