// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tonearm {

/// Makes it possible to wait for children, whatever program has started this one: who ignores SIGCHLD
/// hands that on, and the system then lets go of ended children before anybody has asked for their
/// status. To be called once, before other threads start.
void restoreChildSignal();

} // namespace tonearm
