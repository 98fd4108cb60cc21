// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// "<number> <title>.aiff" as one file name: what a name can't hold is replaced, and a long title cut.
/// A track without a title is called "Audio Track".
QString trackFileName(int number, const QString &title);

/// The name of the volume: the disc's title as one file name that isn't hidden, or "Audio CD".
QString volumeName(const QString &discTitle);

} // namespace tonearm
