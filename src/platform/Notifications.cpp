// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Notifications.h"

#include "platform/BusCall.h"
#include "platform/DesktopEntry.h"

#include <QDBusMessage>
#include <QPointer>
#include <QStringList>
#include <QVariantMap>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr auto service = "org.freedesktop.Notifications"_L1;
constexpr auto path = "/org/freedesktop/Notifications"_L1;
constexpr auto defaultAction = "default"_L1;
constexpr quint32 replacingNone = 0;
constexpr qint32 asLongAsUsual = -1;

QDBusMessage request(const QString &method)
{
    return QDBusMessage::createMethodCall(service, path, service, method);
}

} // namespace

Notifications::Notifications(LazyBus &bus)
    : m_bus(bus)
{
}

void Notifications::show(const QString &headline, const QString &detail, const std::function<void()> &onClick)
{
    const QPointer<Notifications> self(this);
    m_bus.use([=](const QDBusConnection &bus) {
        if (!self)
            return;
        self->listen(bus);
        // Some services read a body as markup, and others show it as it is.
        callBus(bus, request(u"GetCapabilities"_s), [=](const QDBusMessage &reply) {
            if (!self || reply.type() != QDBusMessage::ReplyMessage)
                return;
            const bool isMarkup = reply.arguments().value(0).toStringList().contains(u"body-markup"_s);
            self->send(bus, headline, isMarkup ? detail.toHtmlEscaped() : detail, onClick);
        });
    });
}

void Notifications::send(QDBusConnection bus, const QString &headline, const QString &body,
                         const std::function<void()> &onClick)
{
    QDBusMessage notice = request(u"Notify"_s);
    notice << u"Tonearm"_s << replacingNone << QString(desktopEntryName) << headline << body
           << QStringList{defaultAction, u"Show"_s}
           << QVariantMap{{u"desktop-entry"_s, QString(desktopEntryName)}} << asLongAsUsual;
    callBus(bus, notice, [self = QPointer(this), onClick](const QDBusMessage &reply) {
        if (self && reply.type() == QDBusMessage::ReplyMessage)
            self->m_onClick.insert(reply.arguments().value(0).toUInt(), onClick);
    });
}

// From any sender: to match one by its name, QtDBus would ask for its owner and wait. The numbers of other
// notifications aren't known here.
void Notifications::listen(QDBusConnection bus)
{
    if (std::exchange(m_isListening, true))
        return;
    const QString anyone;
    bus.connect(anyone, path, service, u"ActivationToken"_s, this, SLOT(noticeToken(uint, QString)));
    bus.connect(anyone, path, service, u"ActionInvoked"_s, this, SLOT(noticeAction(uint, QString)));
    bus.connect(anyone, path, service, u"NotificationClosed"_s, this, SLOT(noticeEnd(uint)));
}

// Under Wayland a window may come to the front only with such a token; Qt looks for it in this variable.
void Notifications::noticeToken(uint id, const QString &token)
{
    if (m_onClick.contains(id))
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

void Notifications::noticeAction(uint id, const QString &action)
{
    if (action != defaultAction)
        return;
    if (const std::function<void()> onClick = m_onClick.take(id))
        onClick();
}

void Notifications::noticeEnd(uint id)
{
    m_onClick.remove(id);
}

} // namespace tonearm
