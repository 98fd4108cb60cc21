// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace tonearm {

/// The application's icon, drawn anew for each size and scale factor. Needs none of Qt's plugins.
QIcon applicationIcon();

} // namespace tonearm
