// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LazyBus.h"

#include <QDBusMessage>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace tonearm {

/// One request that the machine stay awake, from the asking to the release. Main thread.
///
/// Desktops differ in whom they listen to, so the services are asked one after the other until one agrees:
/// the session manager (GNOME, Cinnamon, MATE, Budgie), the power manager (Plasma, Xfce), the portal
/// (all that a confined application sees), and the system's login manager (the rest). The desktop's own
/// come before the portal, which agrees before it knows whether anybody behind it does.
class SleepInhibition : public std::enable_shared_from_this<SleepInhibition>
{
public:
    /// The buses, the session's and the system's, have to last until the release.
    static std::shared_ptr<SleepInhibition> begin(LazyBus &session, LazyBus &system, const QString &reason);

    SleepInhibition(const SleepInhibition &) = delete;
    SleepInhibition &operator=(const SleepInhibition &) = delete;

    /// Gives it back. If the answer is still to come, that happens when it comes.
    void release();

private:
    struct Agreement
    {
        QDBusConnection bus;
        // The login manager's holds a file descriptor: what it stands for lasts as long as that is open.
        QDBusMessage reply;
        qsizetype service;
    };

    SleepInhibition(LazyBus &session, LazyBus &system, QString reason);

    void ask(qsizetype service);
    void takeAnswer(const QDBusConnection &bus, qsizetype service, const QDBusMessage &reply);
    void giveBack();

    LazyBus &m_session;
    LazyBus &m_system;
    QString m_reason;
    bool m_isReleased = false;
    std::optional<Agreement> m_agreement;
};

} // namespace tonearm
