// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusObjectPath>
#include <QList>
#include <QMap>
#include <QString>
#include <QVariantMap>

#include <optional>

namespace tonearm {

/// The objects of UDisks2: the properties of each of their interfaces, by path and interface.
using UDisksObjects = QMap<QDBusObjectPath, QMap<QString, QVariantMap>>;

/// A disc with audio tracks in one of the machine's drives. The same disc inserted again is another.
struct AudioDisc
{
    /// The drive's object in UDisks2.
    QString drive;
    /// The drive's device, such as /dev/sr0.
    QString device;
    /// When the drive noticed the disc, in microseconds since 1970.
    quint64 insertion = 0;

    bool operator==(const AudioDisc &) const = default;
};

/// The discs with audio tracks, by device.
QList<AudioDisc> audioDiscs(const UDisksObjects &objects);

/// The object of the drive whose device this is; nothing if it is no drive's.
std::optional<QString> driveOf(const UDisksObjects &objects, const QString &device);

} // namespace tonearm
