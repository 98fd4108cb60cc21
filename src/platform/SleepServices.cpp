// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SleepServices.h"

#include "platform/DesktopEntry.h"

#include <QDBusObjectPath>
#include <QVariantMap>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Of the session manager's and of the portal's kinds: no automatic sleep. The screen may still go dark, and
// lock.
constexpr quint32 suspending = 4;
constexpr quint32 noWindow = 0;

// A power manager that isn't running belongs to another desktop and isn't to be started.
QDBusMessage callOfRunning(const QString &service, const QString &path, const QString &interface,
                           const QString &method)
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, method);
    call.setAutoStartService(false);
    return call;
}

SleepService sessionManager()
{
    const auto call = [](const QString &method) {
        const QString name = u"org.gnome.SessionManager"_s;
        return callOfRunning(name, u"/org/gnome/SessionManager"_s, name, method);
    };
    return {.request =
                [call](const QString &reason) {
                    return call(u"Inhibit"_s)
                           << QString(desktopEntryName) << noWindow << reason << suspending;
                },
            .answer = u"u"_s,
            .release = [call](const QVariant &cookie) { return call(u"Uninhibit"_s) << cookie; }};
}

SleepService powerManager()
{
    const auto call = [](const QString &method) {
        return callOfRunning(u"org.freedesktop.PowerManagement"_s,
                             u"/org/freedesktop/PowerManagement/Inhibit"_s,
                             u"org.freedesktop.PowerManagement.Inhibit"_s, method);
    };
    return {.request = [call](const QString &reason) { return call(u"Inhibit"_s) << u"Tonearm"_s << reason; },
            .answer = u"u"_s,
            .release = [call](const QVariant &cookie) { return call(u"UnInhibit"_s) << cookie; }};
}

SleepService portal()
{
    const auto call = [](const QString &path, const QString &interface, const QString &method) {
        return QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s, path, interface, method);
    };
    return {.request =
                [call](const QString &reason) {
                    return call(u"/org/freedesktop/portal/desktop"_s, u"org.freedesktop.portal.Inhibit"_s,
                                u"Inhibit"_s)
                           << QString() << suspending << QVariantMap{{u"reason"_s, reason}};
                },
            .answer = u"o"_s,
            .release =
                [call](const QVariant &request) {
                    return call(request.value<QDBusObjectPath>().path(), u"org.freedesktop.portal.Request"_s,
                                u"Close"_s);
                }};
}

SleepService loginManager()
{
    return {.isOnSystemBus = true,
            .request =
                [](const QString &reason) {
                    return QDBusMessage::createMethodCall(u"org.freedesktop.login1"_s,
                                                          u"/org/freedesktop/login1"_s,
                                                          u"org.freedesktop.login1.Manager"_s, u"Inhibit"_s)
                           << u"sleep:idle"_s << u"Tonearm"_s << reason << u"block"_s;
                },
            .answer = u"h"_s};
}

} // namespace

const QList<SleepService> &sleepServices()
{
    static const QList<SleepService> services = {sessionManager(), powerManager(), portal(), loginManager()};
    return services;
}

} // namespace tonearm
