// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/DriveList.h"
#include "support/DescribedError.h"

#include <QCoroTask>

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>

#include <functional>
#include <stop_token>

namespace tonearm {

/// UDisks2 is absent, or refuses.
class UDisksError : public DescribedError
{
public:
    UDisksError(QString errorName, QString errorMessage);

    QString description() const override { return message; }

    /// The name of the D-Bus error.
    QString name;
    QString message;

    bool operator==(const UDisksError &other) const;
};

/// UDisks2, the system's service for drives. Never blocks on the bus. Main thread.
class UDisks : public QObject
{
    Q_OBJECT

public:
    /// `bus` is the system's. `onChange` is called when the service comes, and when any of its drives or
    /// devices comes, goes or changes.
    UDisks(const QDBusConnection &bus, std::function<void()> onChange);

    /// All that the service knows. Throws UDisksError.
    QCoro::Task<UDisksObjects> objects(std::stop_token stop) const;

    /// Opens a drive, given by its object. Throws UDisksError. After a stop request the drive may still
    /// open.
    QCoro::Task<> eject(QString drive, std::stop_token stop) const;

private Q_SLOTS:
    void noticeChange();

private:
    QDBusConnection m_bus;
    QDBusServiceWatcher m_service;
    std::function<void()> m_onChange;
};

} // namespace tonearm
