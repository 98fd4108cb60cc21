// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LazyBus.h"

#include "support/Background.h"
#include "support/Cancellation.h"

#include <utility>

namespace tonearm {

LazyBus::LazyBus(Opening open)
    : m_open(std::move(open))
{
}

void LazyBus::use(const Use &use)
{
    if (m_bus) {
        use(*m_bus);
        return;
    }
    m_waiting.append(use);
    if (m_waiting.size() == 1)
        m_tasks.start([this](std::stop_token stop) { return connect(std::move(stop)); });
}

QCoro::Task<> LazyBus::connect(std::stop_token stop)
{
    const QDBusConnection bus = co_await inBackground(m_open);
    // Those who wait may be about to go.
    throwIfCancelled(stop);
    m_bus = bus;
    const QList<Use> waiting = std::exchange(m_waiting, {});
    for (const Use &user : waiting)
        user(bus);
}

} // namespace tonearm
