// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SleepInhibition.h"

#include "helpers/Printing.h"
#include "platform/DesktopFixture.h"
#include "support/FileDescriptor.h"

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QElapsedTimer>

#include <optional>

#include <poll.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

class SleepInhibitionTest : public test::DesktopFixture
{
protected:
    void keepAwake() { desktop->keepAwake(u"Encoding to FLAC"_s); }

    // Waits until every service has been asked and none was there.
    void waitUntilNobodyAgrees()
    {
        login.answer(u"Inhibit"_s, QVariantList());
        login.appear();
        keepAwake();
        EXPECT_TRUE(hasCalls(login, 1));
    }

    const quint32 cookie = 42;
    test::ServiceStandIn sessionManager{session.connect(), u"org.gnome.SessionManager"_s};
    test::ServiceStandIn powerManager{session.connect(), u"org.freedesktop.PowerManagement"_s};
    test::ServiceStandIn portal{session.connect(), u"org.freedesktop.portal.Desktop"_s};
    test::ServiceStandIn login{system.connect(), u"org.freedesktop.login1"_s};
};

// Whether nobody holds the end for writing any more.
bool isLetGoOf(const Pipe &pipe)
{
    pollfd state{.fd = pipe.readEnd.number(), .events = POLLIN, .revents = 0};
    return ::poll(&state, 1, 0) == 1 && (state.revents & POLLHUP) != 0;
}

const auto inhibitOfSessionManager = u"/org/gnome/SessionManager org.gnome.SessionManager.Inhibit(susu)"_s;
const auto uninhibitOfSessionManager = u"/org/gnome/SessionManager org.gnome.SessionManager.Uninhibit(u)"_s;

} // namespace

TEST_F(SleepInhibitionTest, AsksTheSessionManagerFirst)
{
    for (test::ServiceStandIn *service : {&sessionManager, &powerManager, &portal, &login})
        service->appear();
    sessionManager.answer(u"Inhibit"_s, {cookie});
    sessionManager.answer(u"Uninhibit"_s, QVariantList());
    keepAwake();
    ASSERT_TRUE(hasCalls(sessionManager, 1));
    EXPECT_EQ(sessionManager.argumentsOf(u"Inhibit"_s).first(),
              (QVariantList{u"example.tonearm.Tonearm"_s, 0U, u"Encoding to FLAC"_s, 4U}));
    desktop->letSleep();
    ASSERT_TRUE(hasCalls(sessionManager, 2));
    EXPECT_EQ(sessionManager.calls(), (QStringList{inhibitOfSessionManager, uninhibitOfSessionManager}));
    EXPECT_EQ(sessionManager.argumentsOf(u"Uninhibit"_s).first(), QVariantList{cookie});
    EXPECT_TRUE(powerManager.calls().isEmpty());
    EXPECT_TRUE(portal.calls().isEmpty());
    EXPECT_EQ(systemOpenings, 0);
}

TEST_F(SleepInhibitionTest, AsksThePowerManager)
{
    powerManager.answer(u"Inhibit"_s, {cookie});
    powerManager.appear();
    keepAwake();
    ASSERT_TRUE(hasCalls(powerManager, 1));
    desktop->letSleep();
    ASSERT_TRUE(hasCalls(powerManager, 2));
    const QString method =
        u"/org/freedesktop/PowerManagement/Inhibit org.freedesktop.PowerManagement.Inhibit."_s;
    EXPECT_EQ(powerManager.calls(), (QStringList{method + u"Inhibit(ss)"_s, method + u"UnInhibit(u)"_s}));
    EXPECT_EQ(powerManager.argumentsOf(u"Inhibit"_s).first(),
              (QVariantList{u"Tonearm"_s, u"Encoding to FLAC"_s}));
    EXPECT_EQ(powerManager.argumentsOf(u"UnInhibit"_s).first(), QVariantList{cookie});
}

TEST_F(SleepInhibitionTest, AsksThePortal)
{
    const QString request = u"/org/freedesktop/portal/desktop/request/1_2/t"_s;
    portal.answer(u"Inhibit"_s, {QVariant::fromValue(QDBusObjectPath(request))});
    portal.appear();
    keepAwake();
    ASSERT_TRUE(hasCalls(portal, 1));
    desktop->letSleep();
    ASSERT_TRUE(hasCalls(portal, 2));
    EXPECT_EQ(
        portal.calls(),
        (QStringList{u"/org/freedesktop/portal/desktop org.freedesktop.portal.Inhibit.Inhibit(sua{sv})"_s,
                     request + u" org.freedesktop.portal.Request.Close()"_s}));
    const QVariantList arguments = portal.argumentsOf(u"Inhibit"_s).first();
    EXPECT_EQ(arguments.first(2), (QVariantList{QString(), 4U}));
    EXPECT_EQ(qdbus_cast<QVariantMap>(arguments.last()), (QVariantMap{{u"reason"_s, u"Encoding to FLAC"_s}}));
}

TEST_F(SleepInhibitionTest, AsksTheLoginManagerAndHoldsItsFile)
{
    Pipe pipe = Pipe::open();
    login.answer(u"Inhibit"_s, [&pipe]() -> QVariantList {
        const QDBusUnixFileDescriptor file(pipe.writeEnd.number());
        pipe.writeEnd.close();
        return {QVariant::fromValue(file)};
    });
    login.appear();
    keepAwake();
    ASSERT_TRUE(hasCalls(login, 1));
    EXPECT_EQ(login.calls().first(),
              u"/org/freedesktop/login1 org.freedesktop.login1.Manager.Inhibit(ssss)"_s);
    EXPECT_EQ(login.argumentsOf(u"Inhibit"_s).first(),
              (QVariantList{u"sleep:idle"_s, u"Tonearm"_s, u"Encoding to FLAC"_s, u"block"_s}));
    EXPECT_FALSE(isLetGoOf(pipe));
    desktop->letSleep();
    EXPECT_TRUE(test::eventually([&] { return isLetGoOf(pipe); }));
}

TEST_F(SleepInhibitionTest, GoesOnToTheNextServiceIfOneRefuses)
{
    sessionManager.appear();
    powerManager.answer(u"Inhibit"_s, {cookie});
    powerManager.appear();
    keepAwake();
    ASSERT_TRUE(hasCalls(powerManager, 1));
    EXPECT_EQ(sessionManager.calls(), QStringList{inhibitOfSessionManager});
}

TEST_F(SleepInhibitionTest, GoesOnIfAnAnswerIsNotAsAgreed)
{
    sessionManager.answer(u"Inhibit"_s, {u"forty-two"_s});
    sessionManager.appear();
    powerManager.answer(u"Inhibit"_s, {cookie});
    powerManager.appear();
    keepAwake();
    EXPECT_TRUE(hasCalls(powerManager, 1));
}

TEST_F(SleepInhibitionTest, GoesOnIfAServiceEndsWithoutAnAnswer)
{
    // It has the one connection that goes with it.
    std::optional<QDBusConnection> connection = session.connect();
    const QString connectionName = connection->name();
    std::optional<test::ServiceStandIn> mute;
    mute.emplace(*connection, u"org.gnome.SessionManager"_s);
    connection.reset();
    mute->holdAnswers();
    mute->appear();
    powerManager.answer(u"Inhibit"_s, {cookie});
    powerManager.appear();
    keepAwake();
    ASSERT_TRUE(hasCalls(*mute, 1));
    EXPECT_TRUE(powerManager.calls().isEmpty());
    mute.reset();
    QDBusConnection::disconnectFromBus(connectionName);
    EXPECT_TRUE(hasCalls(powerManager, 1));
}

TEST_F(SleepInhibitionTest, GivesBackWhatIsAgreedToAfterTheEnd)
{
    sessionManager.answer(u"Inhibit"_s, {cookie});
    sessionManager.holdAnswers();
    sessionManager.appear();
    keepAwake();
    ASSERT_TRUE(hasCalls(sessionManager, 1));
    desktop->letSleep();
    sessionManager.answerAll();
    ASSERT_TRUE(hasCalls(sessionManager, 2));
    EXPECT_EQ(sessionManager.calls().last(), uninhibitOfSessionManager);
}

TEST_F(SleepInhibitionTest, IsGivenBackWithTheDesktop)
{
    sessionManager.answer(u"Inhibit"_s, {cookie});
    sessionManager.appear();
    keepAwake();
    ASSERT_TRUE(hasCalls(sessionManager, 1));
    // The answer may be on its way still.
    desktop.reset();
    ASSERT_TRUE(hasCalls(sessionManager, 2));
    EXPECT_EQ(sessionManager.calls().last(), uninhibitOfSessionManager);
}

TEST_F(SleepInhibitionTest, AsksForNothingIfTheEndComesFirst)
{
    sessionManager.answer(u"Inhibit"_s, {cookie});
    sessionManager.appear();
    keepAwake();
    desktop->letSleep();
    desktop->keepAwake(u"Saving tags"_s);
    ASSERT_TRUE(hasCalls(sessionManager, 1));
    EXPECT_EQ(sessionManager.argumentsOf(u"Inhibit"_s).first()[2], u"Saving tags"_s);
}

TEST_F(SleepInhibitionTest, AsksAgainNextTimeIfNobodyWasThere)
{
    waitUntilNobodyAgrees();
    desktop->letSleep();
    sessionManager.answer(u"Inhibit"_s, {cookie});
    sessionManager.appear();
    keepAwake();
    EXPECT_TRUE(hasCalls(sessionManager, 1));
    EXPECT_EQ(login.calls().size(), 1);
}

TEST_F(SleepInhibitionTest, ConnectsWhenItIsFirstNeededAndOnce)
{
    EXPECT_EQ(sessionOpenings, 0);
    waitUntilNobodyAgrees();
    desktop->letSleep();
    keepAwake();
    EXPECT_TRUE(hasCalls(login, 2));
    EXPECT_EQ(sessionOpenings, 1);
    EXPECT_EQ(systemOpenings, 1);
}

TEST_F(SleepInhibitionTest, IsNeverHeldUpByABusThatDoesNothing)
{
    session.freeze();
    QElapsedTimer time;
    time.start();
    keepAwake();
    EXPECT_TRUE(test::eventually([this] { return sessionOpenings == 1; }));
    desktop->letSleep();
    desktop.reset();
    // A call that waits for its answer gives up after 25 seconds.
    EXPECT_LT(time.elapsed(), 10000);
}

} // namespace tonearm
