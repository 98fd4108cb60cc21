// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace tonearm::test {

/// UDisks2 with optical drives that the test fills and empties. A disc image stands for a disc, and its
/// path for the device of the drive that it lies in.
class DrivesStandIn : public QDBusVirtualObject
{
    Q_OBJECT

public:
    /// Not there before appear().
    explicit DrivesStandIn(const QDBusConnection &bus);

    void appear();
    void vanish();

    void addDrive(const QString &drive);
    void removeDrive(const QString &drive);

    void insert(const QString &drive, const QString &device, uint audioTracks = 1);
    void pullOut(const QString &drive);

    /// From now on no drive opens.
    void refuseToEject() { m_isRefusing = true; }

    /// From now on no call is answered.
    void fallSilent() { m_isSilent = true; }

    /// The drives that were to be ejected, in order.
    const QStringList &ejected() const { return m_ejected; }

    /// The object of a drive.
    static QString path(const QString &drive);

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    using Interfaces = QMap<QString, QVariantMap>;

    struct Drive
    {
        QString device;
        uint audioTracks = 0;
        quint64 insertion = 0;
    };

    QMap<QDBusObjectPath, Interfaces> objects() const;
    static Interfaces driveInterfaces(const Drive &drive);
    static Interfaces blockInterfaces(const QString &name, const Drive &drive);
    QDBusMessage answer(const QDBusMessage &message);
    void tellOfChange(const QString &drive);

    QDBusConnection m_bus;
    QMap<QString, Drive> m_drives;
    QStringList m_ejected;
    quint64 m_clock = 0;
    bool m_isRefusing = false;
    bool m_isSilent = false;
};

} // namespace tonearm::test
