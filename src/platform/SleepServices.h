// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusMessage>
#include <QList>
#include <QString>
#include <QVariant>

#include <functional>

namespace tonearm {

/// A service that can keep the machine awake, in its own language.
struct SleepService
{
    bool isOnSystemBus = false;
    /// The call that asks for it, with a reason.
    std::function<QDBusMessage(const QString &)> request;
    /// The signature of its answer if it agrees.
    QString answer;
    /// The call that gives it back, made of the answer's value; absent if letting go of the answer does.
    std::function<QDBusMessage(const QVariant &)> release = {};
};

/// Those that are asked, in that order.
const QList<SleepService> &sleepServices();

} // namespace tonearm
