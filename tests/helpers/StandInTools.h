// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/ToolLocation.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace tonearm::test {

/// A resource folder with shell scripts in the tools' place.
class StandInTools
{
public:
    StandInTools();

    /// Makes a script of that name; it finds `path()` in $here, for what it wants to leave.
    void add(const QString &name, const QByteArray &body);

    /// Puts any bytes under that name, executable.
    void addBytes(const QString &name, const QByteArray &contents);

    ToolLocation location() const { return ToolLocation(m_folder.path()); }

    /// A place in the folder, outside "bin".
    QString path(const QString &name = {}) const { return m_folder.filePath(name); }

    /// Waits until a script has left a file of that name; false if it doesn't within ten seconds.
    bool waitFor(const QString &name) const;

    /// Whether the process whose id a script left in the file "pid" is still there.
    bool isRunning() const;

private:
    QTemporaryDir m_folder;
};

} // namespace tonearm::test
