// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SystemBus.h"

#include "helpers/Await.h"
#include "helpers/Borrowed.h"
#include "helpers/Printing.h"
#include "helpers/PrivateBus.h"
#include "platform/BusGreeting.h"
#include "support/Cancellation.h"
#include "support/TaskScope.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTimer>

#include <optional>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// A call that waits for its answer gives up after 25 seconds.
constexpr int wellBelowItsPatience = 10000;

} // namespace

TEST(SystemBus, IsWhereTheEnvironmentSaysElseWhereSystemsHaveIt)
{
    const test::BorrowedVariable variable("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/somewhere");
    EXPECT_EQ(systemBusAddress(), u"unix:path=/somewhere"_s);
    ASSERT_TRUE(qunsetenv("DBUS_SYSTEM_BUS_ADDRESS"));
    EXPECT_EQ(systemBusAddress(), u"unix:path=/run/dbus/system_bus_socket"_s);
}

TEST(SystemBus, IsConnectedTo)
{
    test::PrivateBus bus;
    const QDBusConnection first = test::await(connectToBus(bus.address(), {}));
    const QDBusConnection second = test::await(connectToBus(bus.address(), {}));
    EXPECT_TRUE(first.isConnected());
    EXPECT_NE(first.baseService(), second.baseService());
}

TEST(SystemBus, MayBeAbsent)
{
    const QString tooLong = u"unix:path="_s + QString(200, u'x');
    for (const QString &address : {u"unix:path=/nowhere/at/all"_s, tooLong, u"unix:abstract=tonearm-nobody"_s,
                                   u"tcp:host=127.0.0.1,port=9"_s, u"nonsense"_s, QString()})
        EXPECT_FALSE(test::await(connectToBus(address, {})).isConnected()) << address.toStdString();
}

TEST(SystemBus, HoldsUpNobodyWhileItDoesntAnswer)
{
    test::PrivateBus silent;
    test::PrivateBus other;
    silent.freeze();
    QElapsedTimer time;
    time.start();
    std::optional<QDBusConnection> bus;
    TaskScope tasks;
    tasks.start([&](std::stop_token stop) -> QCoro::Task<> {
        const QDBusConnection connected = co_await connectToBus(silent.address(), stop);
        bus.emplace(connected);
    });
    EXPECT_FALSE(test::eventually([&] { return bus.has_value(); }, 200));
    EXPECT_TRUE(other.connect().isConnected());
    EXPECT_LT(time.elapsed(), wellBelowItsPatience);
    silent.thaw();
    ASSERT_TRUE(test::eventually([&] { return bus.has_value(); }));
    EXPECT_TRUE(bus->isConnected());
}

TEST(SystemBus, IsNoLongerWaitedForAfterAStopRequest)
{
    test::PrivateBus bus;
    bus.freeze();
    QElapsedTimer time;
    time.start();
    std::stop_source stop;
    QTimer::singleShot(0, [&] { stop.request_stop(); });
    EXPECT_TRUE(test::awaitError<CancellationError>(connectToBus(bus.address(), stop.get_token())));
    EXPECT_LT(time.elapsed(), wellBelowItsPatience);
}

TEST(BusGreeting, FindsTheLocalSocketOfAnAddress)
{
    EXPECT_EQ(localSocketOf(u"unix:path=/run/bus,guid=1"_s), "/run/bus");
    EXPECT_EQ(localSocketOf(u"unix:guid=1,path=/run/a%20bus%2c"_s), "/run/a bus,");
    EXPECT_EQ(localSocketOf(u"tcp:host=here,port=1;unix:path=/run/bus"_s), "/run/bus");
    EXPECT_EQ(localSocketOf(u"unix:abstract=bus"_s), QByteArray("\0bus", 4));
    EXPECT_EQ(localSocketOf(u"tcp:path=/run/bus"_s), std::nullopt);
    EXPECT_EQ(localSocketOf(u"unix:"_s), std::nullopt);
    EXPECT_EQ(localSocketOf(QString()), std::nullopt);
}

} // namespace tonearm
