// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/DrivesStandIn.h"

#include <gtest/gtest.h>

#include <QDBusMessage>
#include <QDBusMetaType>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

constexpr auto service = "org.freedesktop.UDisks2"_L1;
constexpr auto root = "/org/freedesktop/UDisks2"_L1;
constexpr auto driveInterface = "org.freedesktop.UDisks2.Drive"_L1;
constexpr auto blockInterface = "org.freedesktop.UDisks2.Block"_L1;
constexpr auto managerInterface = "org.freedesktop.DBus.ObjectManager"_L1;

QString blockPath(const QString &drive)
{
    return root + u"/block_devices/" + drive;
}

} // namespace

DrivesStandIn::DrivesStandIn(const QDBusConnection &bus)
    : m_bus(bus)
{
    qDBusRegisterMetaType<QMap<QString, QVariantMap>>();
    qDBusRegisterMetaType<QMap<QDBusObjectPath, QMap<QString, QVariantMap>>>();
    EXPECT_TRUE(m_bus.registerVirtualObject(root, this, QDBusConnection::SubPath));
}

void DrivesStandIn::appear()
{
    EXPECT_TRUE(m_bus.registerService(service));
}

void DrivesStandIn::vanish()
{
    EXPECT_TRUE(m_bus.unregisterService(service));
}

void DrivesStandIn::addDrive(const QString &drive)
{
    m_drives.insert(drive, {});
    QDBusMessage signal = QDBusMessage::createSignal(root, managerInterface, u"InterfacesAdded"_s);
    signal << QVariant::fromValue(QDBusObjectPath(path(drive)))
           << QVariant::fromValue(driveInterfaces(m_drives[drive]));
    m_bus.send(signal);
}

void DrivesStandIn::removeDrive(const QString &drive)
{
    m_drives.remove(drive);
    QDBusMessage signal = QDBusMessage::createSignal(root, managerInterface, u"InterfacesRemoved"_s);
    signal << QVariant::fromValue(QDBusObjectPath(path(drive))) << QStringList{driveInterface};
    m_bus.send(signal);
}

void DrivesStandIn::insert(const QString &drive, const QString &device, uint audioTracks)
{
    m_drives[drive] = {.device = device, .audioTracks = audioTracks, .insertion = ++m_clock};
    tellOfChange(drive);
}

void DrivesStandIn::pullOut(const QString &drive)
{
    m_drives[drive] = {};
    tellOfChange(drive);
}

QString DrivesStandIn::path(const QString &drive)
{
    return root + u"/drives/" + drive;
}

QString DrivesStandIn::introspect(const QString &) const
{
    return {};
}

bool DrivesStandIn::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    if (!m_isSilent)
        connection.send(answer(message));
    return true;
}

QMap<QDBusObjectPath, DrivesStandIn::Interfaces> DrivesStandIn::objects() const
{
    QMap<QDBusObjectPath, Interfaces> objects;
    for (auto drive = m_drives.begin(); drive != m_drives.end(); ++drive) {
        objects.insert(QDBusObjectPath(path(drive.key())), driveInterfaces(*drive));
        objects.insert(QDBusObjectPath(blockPath(drive.key())), blockInterfaces(drive.key(), *drive));
    }
    return objects;
}

DrivesStandIn::Interfaces DrivesStandIn::driveInterfaces(const Drive &drive)
{
    return {{driveInterface,
             {{u"MediaAvailable"_s, drive.insertion != 0},
              {u"OpticalNumAudioTracks"_s, drive.audioTracks},
              {u"TimeMediaDetected"_s, drive.insertion}}}};
}

DrivesStandIn::Interfaces DrivesStandIn::blockInterfaces(const QString &name, const Drive &drive)
{
    return {{blockInterface,
             {{u"Device"_s, QByteArray(drive.device.toUtf8() + '\0')},
              {u"Drive"_s, QVariant::fromValue(QDBusObjectPath(path(name)))}}}};
}

QDBusMessage DrivesStandIn::answer(const QDBusMessage &message)
{
    if (message.interface() == managerInterface && message.member() == u"GetManagedObjects")
        return message.createReply(QVariant::fromValue(objects()));
    const QString drive = message.path().section(u'/', -1);
    const bool isEject = message.interface() == driveInterface && message.member() == u"Eject" &&
                         message.signature() == u"a{sv}" && m_drives.contains(drive);
    if (!isEject)
        return message.createErrorReply(QDBusError::UnknownMethod, u"There is no such method."_s);
    if (m_isRefusing)
        return message.createErrorReply(u"org.freedesktop.UDisks2.Error.DeviceBusy"_s, u"It is locked."_s);
    m_ejected.append(drive);
    pullOut(drive);
    return message.createReply();
}

void DrivesStandIn::tellOfChange(const QString &drive)
{
    QDBusMessage signal =
        QDBusMessage::createSignal(path(drive), u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s);
    signal << QString(driveInterface) << driveInterfaces(m_drives[drive]).value(driveInterface)
           << QStringList();
    m_bus.send(signal);
}

} // namespace tonearm::test
