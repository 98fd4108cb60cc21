// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/TaskScope.h"

#include <QCoroTask>

#include <QDBusConnection>
#include <QList>

#include <functional>
#include <optional>
#include <stop_token>

namespace tonearm {

/// A message bus that is connected to when somebody first needs it, off the main thread, for that waits for
/// the bus. Main thread.
class LazyBus
{
public:
    using Opening = std::function<QDBusConnection()>;
    using Use = std::function<void(QDBusConnection)>;

    /// `open` is called once, on another thread; the connection that it gives may be a failed one.
    explicit LazyBus(Opening open);
    LazyBus(const LazyBus &) = delete;
    LazyBus &operator=(const LazyBus &) = delete;

    /// Calls `use` with the connection: at once, or as soon as it is there. The order of the calls is kept;
    /// those that still wait when this object goes are dropped.
    void use(const Use &use);

private:
    QCoro::Task<> connect(std::stop_token stop);

    Opening m_open;
    std::optional<QDBusConnection> m_bus;
    QList<Use> m_waiting;
    // Last, so that the task ends while all else is still there.
    TaskScope m_tasks;
};

} // namespace tonearm
