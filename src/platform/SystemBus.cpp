// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SystemBus.h"

#include "platform/BusGreeting.h"
#include "support/Background.h"

#include <QUuid>

namespace tonearm {

using namespace Qt::StringLiterals;

QString systemBusAddress()
{
    return qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS", u"unix:path=/run/dbus/system_bus_socket"_s);
}

QCoro::Task<QDBusConnection> connectToBus(QString address, std::stop_token stop)
{
    // QtDBus waits for the bus on the one thread that serves all connections of the process.
    co_await waitForAnswer(address, stop);
    const auto connecting = [address] {
        return QDBusConnection::connectToBus(address, QUuid::createUuid().toString());
    };
    QDBusConnection bus = co_await inBackground(connecting);
    co_return bus;
}

} // namespace tonearm
