// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace tonearm::test {

/// A D-Bus of the test's own, with nobody on it; goes with this object. Stands for the system's bus.
class PrivateBus
{
public:
    /// Fails the test if the bus can't be started.
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    /// A connection of its own each time, good as long as the bus.
    QDBusConnection connect();

    /// As the environment tells it to programs.
    QString address() const { return m_address; }

    /// From now on the bus passes nothing on, and answers nobody.
    void freeze();

    /// Ends that.
    void thaw();

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QStringList m_connections;
};

} // namespace tonearm::test
