// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessible>

class QWidget;

namespace tonearm {

/// Tells assistive technology what a widget is for where its class says nothing, or the wrong thing,
/// about that. The widget's name is then its accessible name alone. To be called before the widget is
/// shown.
void setAccessibleRole(QWidget *widget, QAccessible::Role role);

} // namespace tonearm
