// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ResourceFolder.h"

#include <QCoreApplication>
#include <QDir>

namespace tonearm {

using namespace Qt::StringLiterals;

std::optional<QString> resourceFolder()
{
    const QDir programs(QCoreApplication::applicationDirPath());
    const QString folder = QDir::cleanPath(programs.filePath(u"../share/tonearm"_s));
    return QDir(folder).exists() ? std::optional(folder) : std::nullopt;
}

} // namespace tonearm
