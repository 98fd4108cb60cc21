// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/BusCall.h"

#include <QCoreApplication>
#include <QDBusError>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QMetaObject>

#include <utility>

namespace tonearm {

void callBus(const QDBusConnection &bus, const QDBusMessage &request,
             std::function<void(const QDBusMessage &)> onReply)
{
    QObject *application = QCoreApplication::instance();
    const QDBusPendingCall call = bus.asyncCall(request);
    // Without a bus the call has failed at once, of which no watcher tells.
    if (call.isFinished()) {
        const auto reply = [onReply = std::move(onReply), message = call.reply()] { onReply(message); };
        QMetaObject::invokeMethod(application, reply, Qt::QueuedConnection);
        return;
    }
    auto *watcher = new QDBusPendingCallWatcher(call, application);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [watcher, onReply = std::move(onReply)] {
                         watcher->deleteLater();
                         onReply(watcher->reply());
                     });
}

} // namespace tonearm
