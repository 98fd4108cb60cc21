// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/WindowTasks.h"

#include "support/Cancellation.h"

#include <utility>

namespace tonearm {

namespace {

// The parameters live in the coroutine's frame, and with them everything that the body captured.
QCoro::Task<> drive(WindowTasks::Body body, std::stop_token stop)
{
    try {
        co_await body(stop);
    } catch (const CancellationError &) { // NOLINT(bugprone-empty-catch): a quiet end
    }
}

} // namespace

WindowTasks::~WindowTasks()
{
    m_stop.request_stop();
}

void WindowTasks::start(Body body)
{
    drive(std::move(body), m_stop.get_token());
}

} // namespace tonearm
