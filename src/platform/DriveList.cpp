// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DriveList.h"

#include <QFile>

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// A drive's device and its object. The device of a partition is none.
struct DriveDevice
{
    QString device;
    QDBusObjectPath drive;
};

QList<DriveDevice> driveDevices(const UDisksObjects &objects)
{
    QList<DriveDevice> devices;
    for (const auto &interfaces : objects) {
        const QVariantMap block = interfaces.value(u"org.freedesktop.UDisks2.Block"_s);
        const auto drive = block.value(u"Drive"_s).value<QDBusObjectPath>();
        if (!objects.contains(drive) || interfaces.contains(u"org.freedesktop.UDisks2.Partition"_s))
            continue;
        // The path comes with a zero byte at its end.
        const QByteArray device = block.value(u"Device"_s).toByteArray();
        devices.append({.device = QFile::decodeName(device.constData()), .drive = drive});
    }
    return devices;
}

} // namespace

QList<AudioDisc> audioDiscs(const UDisksObjects &objects)
{
    QList<AudioDisc> discs;
    for (const DriveDevice &entry : driveDevices(objects)) {
        const QVariantMap drive = objects.value(entry.drive).value(u"org.freedesktop.UDisks2.Drive"_s);
        if (!drive.value(u"MediaAvailable"_s).toBool() ||
            drive.value(u"OpticalNumAudioTracks"_s).toUInt() == 0)
            continue;
        discs.append({.drive = entry.drive.path(),
                      .device = entry.device,
                      .insertion = drive.value(u"TimeMediaDetected"_s).toULongLong()});
    }
    std::sort(discs.begin(), discs.end(),
              [](const AudioDisc &first, const AudioDisc &second) { return first.device < second.device; });
    return discs;
}

std::optional<QString> driveOf(const UDisksObjects &objects, const QString &device)
{
    for (const DriveDevice &entry : driveDevices(objects))
        if (entry.device == device)
            return entry.drive.path();
    return std::nullopt;
}

} // namespace tonearm
