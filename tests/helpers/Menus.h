// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>
#include <QStringList>
#include <QWidget>

namespace tonearm::test {

/// The menu that is open; throws if none is.
QMenu &openMenu();

/// Opens a widget's menu as a right click does; throws if none opens.
QMenu &openContextMenu(QWidget &widget);

/// Each entry's text, in brackets while it can't be picked; "-" for a divider.
QStringList entriesOf(const QMenu &menu);

/// Clicks an entry; throws if there is none of that text.
void pick(QMenu &menu, const QString &text);

} // namespace tonearm::test
