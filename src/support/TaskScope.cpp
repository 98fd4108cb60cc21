// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/TaskScope.h"

#include "support/Cancellation.h"

#include <QEventLoop>
#include <QMetaObject>
#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace tonearm {

namespace {

// The parameters live in the coroutine's frame, and with them everything that the body captured.
QCoro::Task<> drive(TaskScope::Body body, TaskHandle handle, std::function<void()> ended)
{
    // However the body ends, the scope must not wait for it any longer.
    const auto guard = qScopeGuard(ended);
    try {
        co_await body(handle.stopToken());
    } catch (const CancellationError &) { // NOLINT(bugprone-empty-catch): a quiet end
    }
}

} // namespace

TaskScope::TaskScope()
    : m_running(std::make_shared<Running>())
{
}

TaskScope::~TaskScope()
{
    for (const TaskHandle &task : *m_running)
        task.cancel();
    QEventLoop loop;
    while (!m_running->empty())
        loop.processEvents(QEventLoop::WaitForMoreEvents);
}

TaskHandle TaskScope::start(Body body)
{
    TaskHandle handle;
    m_running->push_back(handle);
    auto ended = [running = m_running, handle] { std::erase(*running, handle); };
    QMetaObject::invokeMethod(
        &m_context,
        [body = std::move(body), handle, ended = std::move(ended)] { drive(body, handle, ended); },
        Qt::QueuedConnection);
    return handle;
}

} // namespace tonearm
