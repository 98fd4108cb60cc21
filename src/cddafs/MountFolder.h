// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tonearm {

/// A folder to mount a volume on, removed again when this object goes.
class MountFolder
{
public:
    /// Makes a folder in `parent`, which is made too if it isn't there. If something of that name is
    /// there, "<name> 2" and so on are tried; an empty folder that nothing is mounted on serves as it
    /// is. Throws CddafsError.
    MountFolder(const QByteArray &parent, const QString &name);
    ~MountFolder();
    MountFolder(const MountFolder &) = delete;
    MountFolder &operator=(const MountFolder &) = delete;

    const QByteArray &path() const { return m_path; }

private:
    QByteArray m_path;
};

} // namespace tonearm
