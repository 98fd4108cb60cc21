// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

class QWidget;

namespace tonearm {

/// Does something once the window has been painted for the first time from now on, for what shouldn't keep
/// the user waiting for it. Not at all if the window goes before.
void afterFirstFrame(QWidget *window, std::function<void()> action);

} // namespace tonearm
