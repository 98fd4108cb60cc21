// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/UDisks.h"

#include "support/Cancellation.h"

#include <QCoroFuture>

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QPromise>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr auto service = "org.freedesktop.UDisks2"_L1;
constexpr auto root = "/org/freedesktop/UDisks2"_L1;
constexpr auto driveInterface = "org.freedesktop.UDisks2.Drive"_L1;
constexpr auto managerInterface = "org.freedesktop.DBus.ObjectManager"_L1;

// Suspends until the reply is there.
QCoro::Task<QDBusMessage> replyTo(QDBusPendingCall call, std::stop_token stop)
{
    QPromise<void> promise;
    promise.start();
    QFuture<void> answered = promise.future();
    const QDBusPendingCallWatcher watcher(call);
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &watcher,
                     [&promise] { promise.finish(); });
    const std::stop_callback onStop(stop, [&promise] { promise.finish(); });
    // Without a bus the call has failed at once, of which no watcher tells.
    if (!call.isFinished())
        co_await answered;

    throwIfCancelled(stop);
    if (call.isError())
        throw UDisksError(call.error().name(), call.error().message());
    co_return call.reply();
}

} // namespace

UDisksError::UDisksError(QString errorName, QString errorMessage)
    : name(std::move(errorName))
    , message(std::move(errorMessage))
{
}

bool UDisksError::operator==(const UDisksError &other) const
{
    return name == other.name && message == other.message;
}

UDisks::UDisks(const QDBusConnection &bus, std::function<void()> onChange)
    : m_bus(bus)
    , m_service(service, bus, QDBusServiceWatcher::WatchForRegistration)
    , m_onChange(std::move(onChange))
{
    connect(&m_service, &QDBusServiceWatcher::serviceRegistered, this, &UDisks::noticeChange);
    // From any sender: to match one by its name, QtDBus would ask for its owner and wait. What others send
    // makes us look once more, no harm.
    const QString anyone;
    for (const QString &signal : {u"InterfacesAdded"_s, u"InterfacesRemoved"_s})
        m_bus.connect(anyone, root, managerInterface, signal, this, SLOT(noticeChange()));
    m_bus.connect(anyone, {}, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s, {driveInterface},
                  {}, this, SLOT(noticeChange()));
}

QCoro::Task<UDisksObjects> UDisks::objects(std::stop_token stop) const
{
    const QDBusMessage request =
        QDBusMessage::createMethodCall(service, root, managerInterface, u"GetManagedObjects"_s);
    const QDBusPendingCall call = m_bus.asyncCall(request);
    const QDBusMessage reply = co_await replyTo(call, stop);
    co_return qdbus_cast<UDisksObjects>(reply.arguments().value(0));
}

QCoro::Task<> UDisks::eject(QString drive, std::stop_token stop) const
{
    QDBusMessage request = QDBusMessage::createMethodCall(service, drive, driveInterface, u"Eject"_s);
    request << QVariantMap();
    const QDBusPendingCall call = m_bus.asyncCall(request);
    co_await replyTo(call, stop);
}

void UDisks::noticeChange()
{
    m_onChange();
}

} // namespace tonearm
