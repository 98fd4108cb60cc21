// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace tonearm::test {

/// Runs a call as a user whom file permissions stop, also where the tests themselves run as root. The
/// call runs on a thread of its own and must not throw.
void asOrdinaryUser(const std::function<void()> &call);

} // namespace tonearm::test
