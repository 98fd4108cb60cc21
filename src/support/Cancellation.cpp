// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Cancellation.h"

namespace tonearm {

void throwIfCancelled(const std::stop_token &stop)
{
    if (stop.stop_requested())
        throw CancellationError{};
}

} // namespace tonearm
