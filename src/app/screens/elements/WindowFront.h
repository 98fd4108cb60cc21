// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace tonearm {

/// Whether the user has the window before them: it, or a dialog of its, is the active one.
bool isInFront(const QWidget &window);

/// Shows the window, whether it was put away, hidden or covered.
void bringToFront(QWidget &window);

} // namespace tonearm
