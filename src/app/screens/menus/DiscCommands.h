// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QMenu;

namespace tonearm {

class AppModel;

/// Adds the entries that load and eject an audio CD to a menu. Among several discs the user chooses
/// from a submenu.
void addDiscCommands(QMenu &menu, AppModel &model);

} // namespace tonearm
