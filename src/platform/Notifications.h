// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LazyBus.h"

#include <QHash>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace tonearm {

/// What the desktop shows of the application in its corner. Without a service for that nothing is shown.
/// Main thread.
class Notifications : public QObject
{
    Q_OBJECT

public:
    /// `bus` is the session's and has to outlive it.
    explicit Notifications(LazyBus &bus);

    /// Both texts are shown as they are. `onClick` is called for a click on the notification while this
    /// object lives.
    void show(const QString &headline, const QString &detail, const std::function<void()> &onClick);

private Q_SLOTS:
    void noticeToken(uint id, const QString &token);
    void noticeAction(uint id, const QString &action);
    void noticeEnd(uint id);

private:
    void send(QDBusConnection bus, const QString &headline, const QString &body,
              const std::function<void()> &onClick);
    void listen(QDBusConnection bus);

    LazyBus &m_bus;
    bool m_isListening = false;
    // By the numbers of the notifications that are on show.
    QHash<uint, std::function<void()>> m_onClick;
};

} // namespace tonearm
