// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Notifications.h"

#include "helpers/Printing.h"
#include "platform/DesktopFixture.h"

#include <gtest/gtest.h>

#include <QDBusArgument>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

class NotificationsTest : public test::DesktopFixture
{
protected:
    NotificationsTest()
    {
        service.answer(u"Notify"_s, [this] { return QVariantList{++m_lastNumber}; });
    }

    void appear(const QStringList &capabilities = {})
    {
        service.answer(u"GetCapabilities"_s, {capabilities});
        service.appear();
    }

    void notify(const QString &detail = {})
    {
        desktop->notify({u"Encoded 2 tracks to R&B."_s, detail}, [this] { ++clicks; });
    }

    // A notification that is on show, and whose number the application knows.
    void showOne()
    {
        notify();
        EXPECT_TRUE(hasCalls(service, 2));
    }

    void tell(const QString &signal, const QVariantList &arguments)
    {
        service.sendSignal(u"/org/freedesktop/Notifications"_s, u"org.freedesktop.Notifications"_s, signal,
                           arguments);
    }

    void click(quint32 number, const QString &action = u"default"_s)
    {
        tell(u"ActionInvoked"_s, {number, action});
    }

    bool isClicked(int count = 1)
    {
        return test::eventually([&] { return clicks >= count; }) && clicks == count;
    }

    QVariantList notice() { return service.argumentsOf(u"Notify"_s).value(0); }

    test::ServiceStandIn service{session.connect(), u"org.freedesktop.Notifications"_s};
    int clicks = 0;

private:
    quint32 m_lastNumber = 0;
};

} // namespace

TEST_F(NotificationsTest, ShowsAResult)
{
    appear();
    notify(u"1 < 2"_s);
    ASSERT_TRUE(hasCalls(service, 2));
    const QString method = u"/org/freedesktop/Notifications org.freedesktop.Notifications."_s;
    EXPECT_EQ(service.calls(),
              (QStringList{method + u"GetCapabilities()"_s, method + u"Notify(susssasa{sv}i)"_s}));
    EXPECT_EQ(notice().first(6),
              (QVariantList{u"Tonearm"_s, 0U, u"example.tonearm.Tonearm"_s, u"Encoded 2 tracks to R&B."_s,
                            u"1 < 2"_s, QStringList{u"default"_s, u"Show"_s}}));
    EXPECT_EQ(qdbus_cast<QVariantMap>(notice()[6]),
              (QVariantMap{{u"desktop-entry"_s, u"example.tonearm.Tonearm"_s}}));
    EXPECT_EQ(notice()[7], -1);
}

TEST_F(NotificationsTest, WritesNoMarkup)
{
    appear({u"actions"_s, u"body-markup"_s});
    notify(u"1 < 2"_s);
    ASSERT_TRUE(hasCalls(service, 2));
    EXPECT_EQ(notice()[3], u"Encoded 2 tracks to R&B."_s);
    EXPECT_EQ(notice()[4], u"1 &lt; 2"_s);
}

TEST_F(NotificationsTest, AnswerToAClick)
{
    appear();
    showOne();
    click(1);
    EXPECT_TRUE(isClicked());
}

TEST_F(NotificationsTest, LeaveOtherClicksToOthers)
{
    appear();
    showOne();
    click(7);
    click(1, u"other"_s);
    click(1);
    EXPECT_TRUE(isClicked());
}

TEST_F(NotificationsTest, AnswerEachToItsOwnClick)
{
    appear();
    showOne();
    notify();
    ASSERT_TRUE(hasCalls(service, 4));
    click(2);
    EXPECT_TRUE(isClicked());
    click(1);
    EXPECT_TRUE(isClicked(2));
}

TEST_F(NotificationsTest, AreForgottenWhenTheyAreGone)
{
    appear();
    showOne();
    notify();
    ASSERT_TRUE(hasCalls(service, 4));
    tell(u"NotificationClosed"_s, {1U, 2U});
    click(1);
    click(2);
    EXPECT_TRUE(isClicked());
}

TEST_F(NotificationsTest, HandOverTheRightToComeToTheFront)
{
    appear();
    showOne();
    tell(u"ActivationToken"_s, {7U, u"of another"_s});
    tell(u"ActivationToken"_s, {1U, u"token"_s});
    click(1);
    EXPECT_TRUE(isClicked());
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token");
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST_F(NotificationsTest, AreLostWithoutAServiceAndShownByOneThatComesLater)
{
    notify(u"lost"_s);
    // When this one is asked the bus has told that the other isn't there.
    test::ServiceStandIn powerManager(session.connect(), u"org.freedesktop.PowerManagement"_s);
    powerManager.appear();
    desktop->keepAwake(u"Encoding to FLAC"_s);
    ASSERT_TRUE(hasCalls(powerManager, 1));
    appear();
    notify(u"shown"_s);
    ASSERT_TRUE(hasCalls(service, 2));
    EXPECT_EQ(notice()[4], u"shown"_s);
}

TEST_F(NotificationsTest, WaitForNoServiceThatDoesNotAnswer)
{
    appear();
    service.holdAnswers();
    notify();
    ASSERT_TRUE(hasCalls(service, 1));
    desktop.reset();
    service.answerAll();
    makeDesktop();
    notify(u"later"_s);
    // Nothing came of the first.
    ASSERT_TRUE(hasCalls(service, 3));
    EXPECT_EQ(notice()[4], u"later"_s);
}

} // namespace tonearm
