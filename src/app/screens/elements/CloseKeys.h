// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace tonearm {

/// Closes a window by Ctrl+W and Escape.
void addCloseKeys(QWidget *window);

} // namespace tonearm
