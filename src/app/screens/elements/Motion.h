// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace tonearm {

/// Whether the desktop and its style want things to move.
bool wantsMotion(const QWidget *widget);

} // namespace tonearm
