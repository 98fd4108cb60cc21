// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>

#include <QPromise>

#include <deque>
#include <memory>
#include <stop_token>

namespace tonearm {

/// Lets one of a service's operations work at a time, in the order of asking, although each suspends
/// while a drive works for it. Confined to one thread with an event loop.
class Turns
{
private:
    friend class Turn;

    struct Waiter
    {
        QPromise<void> woken;
        bool hasTurn = false;
    };

    std::deque<std::shared_ptr<Waiter>> m_waiters;
    bool m_isTaken = false;
};

/// An operation's turn, given up at the latest with this object.
class Turn
{
public:
    /// `turns` has to outlive this.
    explicit Turn(Turns &turns)
        : m_turns(turns)
    {
    }

    ~Turn() { pass(); }

    Turn(const Turn &) = delete;
    Turn &operator=(const Turn &) = delete;

    /// Suspends until the turn has come; comes at once when nobody else has it. A stop request ends the
    /// waiting with CancellationError.
    QCoro::Task<> take(std::stop_token stop);

    /// Lets the next operation go on. Does nothing without the turn.
    void pass();

private:
    Turns &m_turns;
    bool m_isHeld = false;
};

} // namespace tonearm
