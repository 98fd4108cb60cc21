// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>

#include <QDBusConnection>
#include <QString>

#include <stop_token>

namespace tonearm {

/// Where the system's bus is on this machine, as D-Bus writes addresses.
QString systemBusAddress();

/// Connects to a bus. Suspends for as long as the bus accepts clients but answers none, and holds up
/// nobody meanwhile, neither this thread nor other connections. Where there is no bus, the connection isn't
/// connected. Throws CancellationError. Main thread.
QCoro::Task<QDBusConnection> connectToBus(QString address, std::stop_token stop);

} // namespace tonearm
