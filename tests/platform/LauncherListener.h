// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace tonearm::test {

/// A dock that keeps record of what applications say of their entries.
class LauncherListener : public QObject
{
    Q_OBJECT

public:
    explicit LauncherListener(QDBusConnection bus)
    {
        using namespace Qt::StringLiterals;
        bus.connect({}, {}, u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s, this,
                    SLOT(note(QDBusMessage)));
        // With its answer the bus has also seen to the line above.
        const QString name = u"org.freedesktop.DBus"_s;
        EXPECT_EQ(bus.call(QDBusMessage::createMethodCall(name, u"/"_s, name, u"GetId"_s)).type(),
                  QDBusMessage::ReplyMessage);
    }

    /// Each as "<application> <progress>", or "<application> none".
    const QStringList &updates() const { return m_updates; }

    const QStringList &signatures() const { return m_signatures; }

private Q_SLOTS:

    void note(const QDBusMessage &signal)
    {
        const auto properties = qdbus_cast<QVariantMap>(signal.arguments().value(1));
        const bool isVisible = properties.value(QStringLiteral("progress-visible")).toBool();
        const QString progress = properties.value(QStringLiteral("progress")).toString();
        m_updates.append(signal.arguments().value(0).toString() + QLatin1Char(' ') +
                         (isVisible ? progress : QStringLiteral("none")));
        m_signatures.append(signal.signature());
    }

private:
    QStringList m_updates;
    QStringList m_signatures;
};

} // namespace tonearm::test
