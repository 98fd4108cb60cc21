// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tonearm {

/// Runs the event loop until the first window has been painted for the first time, then prints two numbers:
/// the system's clock at that moment in nanoseconds, and the process's resident memory in kilobytes.
int reportFirstFrame();

} // namespace tonearm
