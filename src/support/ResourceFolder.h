// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace tonearm {

/// The folder share/tonearm beside the folder of the running program, the same in a build and in an
/// installation under any prefix; nothing if it isn't there. Needs a QCoreApplication.
std::optional<QString> resourceFolder();

} // namespace tonearm
