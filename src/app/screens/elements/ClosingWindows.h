// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace tonearm {

/// Closes all windows of the program but `kept`; whether none was unwilling.
bool closeOtherWindows(QWidget &kept);

/// Ends the program by closing its windows, `last` after all others. A window that has something to ask
/// first stays open, and then so does `last`: the user answers, and may ask for the end again.
void closeAllWindows(QWidget &last);

} // namespace tonearm
