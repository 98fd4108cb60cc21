// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/StateFolder.h"

#include <QDir>

namespace tonearm {

using namespace Qt::StringLiterals;

QString stateFolder()
{
    const QString named = qEnvironmentVariable("XDG_STATE_HOME");
    return QDir::isAbsolutePath(named) ? QDir::cleanPath(named) : QDir::homePath() + u"/.local/state"_s;
}

} // namespace tonearm
