// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/VolumeListing.h"

#include <QList>
#include <QString>

namespace tonearm {

/// The kernel's mount table. Can be read from any thread.
class MountTable : public VolumeListing
{
public:
    explicit MountTable(QString path = QStringLiteral("/proc/self/mountinfo"));

    /// Leaves out a volume that another is mounted on top of.
    QList<MountedVolume> volumes() const override;

private:
    QString m_path;
};

} // namespace tonearm
