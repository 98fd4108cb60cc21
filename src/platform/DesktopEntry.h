// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>

namespace tonearm {

/// By which desktops know the application: the name of its desktop entry, without ".desktop", and of
/// its icon. That under which packaging/ installs both.
inline constexpr QLatin1String desktopEntryName(TONEARM_ID);

} // namespace tonearm
