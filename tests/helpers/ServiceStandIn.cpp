// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/ServiceStandIn.h"

#include <gtest/gtest.h>

#include <utility>

namespace tonearm::test {

using namespace Qt::StringLiterals;

ServiceStandIn::ServiceStandIn(const QDBusConnection &bus, const QString &service)
    : m_bus(bus)
    , m_service(service)
{
    EXPECT_TRUE(m_bus.registerVirtualObject(u"/"_s, this, QDBusConnection::SubPath));
}

void ServiceStandIn::appear()
{
    EXPECT_TRUE(m_bus.registerService(m_service));
}

void ServiceStandIn::answer(const QString &method, const std::function<QVariantList()> &makeAnswer)
{
    m_answers.insert(method, makeAnswer);
}

void ServiceStandIn::answer(const QString &method, const QVariantList &values)
{
    answer(method, [values] { return values; });
}

void ServiceStandIn::answerAll()
{
    m_isHolding = false;
    for (const QDBusMessage &message : std::exchange(m_held, {}))
        reply(message);
}

QStringList ServiceStandIn::calls() const
{
    QStringList calls;
    for (const QDBusMessage &call : m_calls)
        calls.append(u"%1 %2.%3(%4)"_s.arg(call.path(), call.interface(), call.member(), call.signature()));
    return calls;
}

QList<QVariantList> ServiceStandIn::argumentsOf(const QString &method) const
{
    QList<QVariantList> arguments;
    for (const QDBusMessage &call : m_calls)
        if (call.member() == method)
            arguments.append(call.arguments());
    return arguments;
}

void ServiceStandIn::sendSignal(const QString &path, const QString &interface, const QString &name,
                                const QVariantList &arguments)
{
    QDBusMessage signal = QDBusMessage::createSignal(path, interface, name);
    signal.setArguments(arguments);
    EXPECT_TRUE(m_bus.send(signal));
}

QString ServiceStandIn::introspect(const QString &) const
{
    return {};
}

bool ServiceStandIn::handleMessage(const QDBusMessage &message, const QDBusConnection &)
{
    m_calls.append(message);
    if (m_isHolding)
        m_held.append(message);
    else
        reply(message);
    return true;
}

void ServiceStandIn::reply(const QDBusMessage &message)
{
    if (!message.isReplyRequired())
        return;
    const auto answer = m_answers.constFind(message.member());
    if (answer == m_answers.constEnd())
        m_bus.send(message.createErrorReply(QDBusError::UnknownMethod, u"There is no such method."_s));
    else
        m_bus.send(message.createReply((*answer)()));
}

} // namespace tonearm::test
