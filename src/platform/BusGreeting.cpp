// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/BusGreeting.h"

#include "support/Cancellation.h"
#include "support/FileDescriptor.h"
#include "support/InterruptibleSleep.h"

#include <QCoroFuture>

#include <QPromise>
#include <QSocketNotifier>
#include <QStringList>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstddef>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Whether the bus has accepted the connection; false where there is no such bus.
QCoro::Task<bool> connectTo(int socket, QByteArray name, std::stop_token stop)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(name.size()) >= sizeof address.sun_path)
        co_return false;
    std::copy(name.begin(), name.end(), std::begin(address.sun_path));
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
    for (;;) {
        if (::connect(socket, reinterpret_cast<const sockaddr *>(&address), size) == 0)
            co_return true;
        if (errno != EAGAIN)
            co_return false;
        // Too many others wait to be accepted.
        co_await interruptibleSleep(100ms, stop);
    }
}

bool greet(int socket)
{
    const QByteArray user = QByteArray::number(::geteuid()).toHex();
    const QByteArray greeting = '\0' + ("AUTH EXTERNAL " + user + "\r\n");
    return ::send(socket, greeting.constData(), static_cast<std::size_t>(greeting.size()), MSG_NOSIGNAL) ==
           greeting.size();
}

QCoro::Task<> waitUntilReadable(int socket, std::stop_token stop)
{
    QPromise<void> promise;
    promise.start();
    QFuture<void> readable = promise.future();
    QSocketNotifier notifier(socket, QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &notifier, [&] {
        notifier.setEnabled(false);
        promise.finish();
    });
    const std::stop_callback onStop(stop, [&promise] { promise.finish(); });
    co_await readable;
    throwIfCancelled(stop);
}

} // namespace

std::optional<QByteArray> localSocketOf(const QString &address)
{
    const QStringList entries = address.split(u';');
    for (const QString &entry : entries) {
        if (!entry.startsWith(u"unix:"_s))
            continue;
        const QStringList keys = entry.sliced(5).split(u',');
        for (const QString &key : keys) {
            const QByteArray value = QByteArray::fromPercentEncoding(key.section(u'=', 1).toUtf8());
            if (key.startsWith(u"path="_s))
                return value;
            if (key.startsWith(u"abstract="_s))
                return QByteArray('\0' + value);
        }
    }
    return std::nullopt;
}

QCoro::Task<> waitForAnswer(QString address, std::stop_token stop)
{
    const std::optional<QByteArray> name = localSocketOf(address);
    if (!name)
        co_return;
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const bool isConnected = co_await connectTo(socket.number(), *name, stop);
    if (isConnected && greet(socket.number()))
        co_await waitUntilReadable(socket.number(), stop);
}

} // namespace tonearm
