// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// Whether ffmpeg might take a picture's path for the pattern of a series, as it does "a%d.png" with a number
/// and "a%?.png" with a wildcard. Any percent sign counts.
inline bool mayReadAsSeries(const QString &path)
{
    return path.contains(u'%');
}

} // namespace tonearm
