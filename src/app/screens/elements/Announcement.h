// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace tonearm {

/// Makes a widget one whose name a screen reader tells the user, wherever the focus is, when it comes
/// into view and at each call of announce. To be called before the widget has a name.
void makeAnnouncer(QWidget *widget);

/// To be called when the widget has a new message as its accessible name. Does nothing unless the widget
/// is in view.
void announce(QWidget *widget);

} // namespace tonearm
