// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessible>

class QWidget;

namespace tonearm {

/// Tells assistive technology what a widget is for where its class says nothing, or the wrong thing,
/// about that. The widget's name is then its accessible name alone, or a window's title.
void setAccessibleRole(QWidget *widget, QAccessible::Role role);

/// Keeps a mere ornament from assistive technology, for which it then counts as not on the screen and
/// holds nothing, until it is given a role.
void hideFromAssistiveTechnology(QWidget *widget);

} // namespace tonearm
