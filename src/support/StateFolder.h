// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// Where the user's programs keep what isn't worth a setting but should outlast them; nothing is made.
/// The environment may say where, by an absolute path.
QString stateFolder();

} // namespace tonearm
