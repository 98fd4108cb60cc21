// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessible>

class QWidget;

namespace tonearm {

/// Tells assistive technology what a widget is for where its class says nothing, or the wrong thing,
/// about that. The widget's name is then its accessible name alone. To be called before the widget is
/// shown.
void setAccessibleRole(QWidget *widget, QAccessible::Role role);

/// Keeps a mere ornament from assistive technology, for which it then counts as not on the screen. To be
/// called before the widget is shown.
void hideFromAssistiveTechnology(QWidget *widget);

} // namespace tonearm
