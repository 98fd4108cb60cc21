// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace tonearm {

/// Keeps a window that the user can't resize as large as its layout needs it: as wide as that, or where
/// the layout, with a large font, can't do with so little, as wide as it must be, and as high as its
/// wrapped texts then are. To be called once, when the window has its layout.
void keepFitted(QWidget *window, int width);

} // namespace tonearm
