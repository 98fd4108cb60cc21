// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <functional>

namespace tonearm::test {

/// A service on a bus that keeps record of its calls and answers those that it was told of. Calls of other
/// methods fail.
class ServiceStandIn : public QDBusVirtualObject
{
    Q_OBJECT

public:
    /// Not there before appear(). It has the connection for itself.
    ServiceStandIn(const QDBusConnection &bus, const QString &service);

    void appear();

    /// The answer to a method's calls.
    void answer(const QString &method, const std::function<QVariantList()> &makeAnswer);
    void answer(const QString &method, const QVariantList &values);

    /// Calls are put by until answerAll().
    void holdAnswers() { m_isHolding = true; }

    void answerAll();

    /// The calls so far, each as "<path> <interface>.<method>(<signature>)".
    QStringList calls() const;

    /// What a method's calls were given.
    QList<QVariantList> argumentsOf(const QString &method) const;

    void sendSignal(const QString &path, const QString &interface, const QString &name,
                    const QVariantList &arguments);

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    void reply(const QDBusMessage &message);

    QDBusConnection m_bus;
    QString m_service;
    QMap<QString, std::function<QVariantList()>> m_answers;
    QList<QDBusMessage> m_calls;
    QList<QDBusMessage> m_held;
    bool m_isHolding = false;
};

} // namespace tonearm::test
