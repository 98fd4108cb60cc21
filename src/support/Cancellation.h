// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stop_token>

namespace tonearm {

/// Thrown by a suspending operation that has seen its stop request.
///
/// Deliberately neither a DescribedError nor a std::exception: code that catches failures in order to
/// show them must not catch a cancellation by accident.
struct CancellationError
{
};

/// Throws CancellationError if a stop has been requested.
void throwIfCancelled(const std::stop_token &stop);

} // namespace tonearm
