// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/Turn.h"

#include "support/Cancellation.h"

#include <QCoroFuture>

#include <algorithm>
#include <utility>

namespace tonearm {

QCoro::Task<> Turn::take(std::stop_token stop)
{
    if (std::exchange(m_turns.m_isTaken, true)) {
        const auto waiter = std::make_shared<Turns::Waiter>();
        waiter->woken.start();
        m_turns.m_waiters.push_back(waiter);
        const QFuture<void> woken = waiter->woken.future();
        {
            const std::stop_callback onStop(stop, [&] { waiter->woken.finish(); });
            co_await woken;
        }
        if (!waiter->hasTurn) {
            std::erase(m_turns.m_waiters, waiter);
            throw CancellationError{};
        }
    }
    m_isHeld = true;
}

void Turn::pass()
{
    if (!std::exchange(m_isHeld, false))
        return;
    if (m_turns.m_waiters.empty()) {
        m_turns.m_isTaken = false;
        return;
    }
    const auto next = m_turns.m_waiters.front();
    m_turns.m_waiters.pop_front();
    next->hasTurn = true;
    next->woken.finish();
}

} // namespace tonearm
