// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>

#include <chrono>
#include <stop_token>

namespace tonearm {

/// Suspends for a while. Throws CancellationError as soon as a stop is requested, from whichever thread.
/// The caller's thread needs an event loop.
QCoro::Task<> interruptibleSleep(std::chrono::milliseconds time, std::stop_token stop);

} // namespace tonearm
