// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/records/RipVerification.h"

#include <algorithm>

namespace tonearm {

RipVerification combined(RipVerification first, RipVerification second)
{
    // The cases stand in order of weight.
    return std::max(first, second);
}

} // namespace tonearm
