// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// A name that no other file has, for a temporary file of a track: "<use>-<number>-<UUID>.<extension>".
QString ripFileName(const QString &use, qint64 trackNumber, const QString &extension);

} // namespace tonearm
