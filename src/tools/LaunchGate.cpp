// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/LaunchGate.h"

#include <utility>

namespace tonearm {

void LaunchGate::cancel()
{
    const ChildProcess *launched = nullptr;
    {
        const std::lock_guard guard(m_lock);
        m_isCancelled = true;
        launched = m_process ? &*m_process : nullptr;
    }
    if (launched != nullptr && launched->isRunning())
        launched->terminate();
}

const ChildProcess &LaunchGate::store(ChildProcess child)
{
    const ChildProcess *launched = nullptr;
    bool cancelledBefore = false;
    {
        const std::lock_guard guard(m_lock);
        launched = &m_process.emplace(std::move(child));
        cancelledBefore = m_isCancelled;
    }
    if (cancelledBefore)
        launched->terminate();
    return *launched;
}

bool LaunchGate::isCancelled() const
{
    const std::lock_guard guard(m_lock);
    return m_isCancelled;
}

} // namespace tonearm
