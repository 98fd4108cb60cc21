// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstdlib>
#include <stdexcept>

namespace tonearm::bench {

/// Runs a line of the shell; throws std::runtime_error unless it succeeds.
inline void runShell(const QString &line)
{
    if (std::system(line.toUtf8().constData()) != 0)
        throw std::runtime_error("failed: " + line.toStdString());
}

/// A word as the shell has to be given it.
inline QString quoted(QString word)
{
    return u'\'' + word.replace(u'\'', QStringLiteral("'\\''")) + u'\'';
}

} // namespace tonearm::bench
