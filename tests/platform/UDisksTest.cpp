// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/UDisks.h"

#include "helpers/Await.h"
#include "helpers/DrivesStandIn.h"
#include "helpers/Printing.h"
#include "helpers/PrivateBus.h"
#include "support/Cancellation.h"

#include <gtest/gtest.h>

#include <QDBusError>
#include <QElapsedTimer>
#include <QTimer>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

class UDisksTest : public testing::Test
{
protected:
    // Runs the event loop until a change has been told that an action makes.
    bool tells(const std::function<void()> &action)
    {
        const int before = m_changes;
        action();
        return test::eventually([&] { return m_changes > before; });
    }

    test::PrivateBus m_bus;
    test::DrivesStandIn m_drives{m_bus.connect()};
    int m_changes = 0;
    UDisks m_udisks{m_bus.connect(), [this] { ++m_changes; }};
};

} // namespace

TEST_F(UDisksTest, TellsItsObjects)
{
    m_drives.appear();
    m_drives.addDrive(u"Plextor"_s);
    m_drives.insert(u"Plextor"_s, u"/dev/sr0"_s, 12);
    const QList<AudioDisc> discs = audioDiscs(test::await(m_udisks.objects({})));
    EXPECT_EQ(discs, QList{(AudioDisc{.drive = test::DrivesStandIn::path(u"Plextor"_s),
                                      .device = u"/dev/sr0"_s,
                                      .insertion = 1})});
}

TEST_F(UDisksTest, FailsWhereItIsAbsent)
{
    const auto error = test::awaitError<UDisksError>(m_udisks.objects({}));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->name, QDBusError::errorString(QDBusError::ServiceUnknown));
}

TEST_F(UDisksTest, FailsWithoutABus)
{
    const UDisks udisks(QDBusConnection(u"nobody"_s), [] {});
    const auto error = test::awaitError<UDisksError>(udisks.objects({}));
    ASSERT_TRUE(error);
    EXPECT_FALSE(error->description().isEmpty());
}

TEST_F(UDisksTest, TellsWhenTheServiceComes)
{
    EXPECT_TRUE(tells([this] { m_drives.appear(); }));
}

TEST_F(UDisksTest, TellsWhenDrivesComeGoAndChange)
{
    m_drives.appear();
    EXPECT_TRUE(tells([this] { m_drives.addDrive(u"Plextor"_s); }));
    EXPECT_TRUE(tells([this] { m_drives.insert(u"Plextor"_s, u"/dev/sr0"_s); }));
    EXPECT_TRUE(tells([this] { m_drives.pullOut(u"Plextor"_s); }));
    EXPECT_TRUE(tells([this] { m_drives.removeDrive(u"Plextor"_s); }));
}

TEST_F(UDisksTest, EjectsADrive)
{
    m_drives.appear();
    m_drives.addDrive(u"Plextor"_s);
    test::await(m_udisks.eject(test::DrivesStandIn::path(u"Plextor"_s), {}));
    EXPECT_EQ(m_drives.ejected(), QStringList{u"Plextor"_s});
}

TEST_F(UDisksTest, FailsIfADriveRefuses)
{
    m_drives.appear();
    m_drives.addDrive(u"Plextor"_s);
    m_drives.refuseToEject();
    const auto error =
        test::awaitError<UDisksError>(m_udisks.eject(test::DrivesStandIn::path(u"Plextor"_s), {}));
    EXPECT_EQ(error, UDisksError(u"org.freedesktop.UDisks2.Error.DeviceBusy"_s, u"It is locked."_s));
    EXPECT_EQ(error->description(), u"It is locked."_s);
}

TEST_F(UDisksTest, WaitsForNoAnswerAfterAStopRequest)
{
    m_drives.appear();
    m_drives.fallSilent();
    std::stop_source stop;
    QTimer::singleShot(0, [&] { stop.request_stop(); });
    EXPECT_TRUE(test::awaitError<CancellationError>(m_udisks.objects(stop.get_token())));
}

TEST_F(UDisksTest, IsNeverHeldUpByABusThatDoesNothing)
{
    const QDBusConnection connection = m_bus.connect();
    m_bus.freeze();
    QElapsedTimer time;
    time.start();
    const UDisks udisks(connection, [] {});
    std::stop_source stop;
    QTimer::singleShot(0, [&] { stop.request_stop(); });
    EXPECT_TRUE(test::awaitError<CancellationError>(udisks.objects(stop.get_token())));
    // A call that waits for its answer gives up after 25 seconds.
    EXPECT_LT(time.elapsed(), 10000);
}

} // namespace tonearm
