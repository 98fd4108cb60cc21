// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QSize>
#include <QString>

namespace tonearm {

/// How large a window was.
struct KeptWindowSize
{
    /// Without its frame, and as it was before it was maximised.
    QSize size;
    bool isMaximised = false;

    bool operator==(const KeptWindowSize &) const = default;
};

/// Reads the sizes by the windows' ids. What is missing or damaged holds none.
QHash<QString, KeptWindowSize> readWindowSizes(const QString &path);

/// Sets one window's size in the file and leaves the others, whoever wrote them. Nobody is told of a
/// failure: the window then comes up as it did before. Blocks.
void writeWindowSize(const QString &path, const QString &id, const KeptWindowSize &size);

} // namespace tonearm
