// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace tonearm {

/// Makes a widget one whose name a screen reader tells the user, wherever the focus is, at each call of
/// announce. To be called before the widget is shown.
void makeAnnouncer(QWidget *widget);

/// To be called once the widget shows a new message, and has it as its accessible name.
void announce(QWidget *widget);

} // namespace tonearm
