// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/DiscMounts.h"
#include "platform/UDisks.h"
#include "support/TaskScope.h"
#include "tools/ProcessRunner.h"
#include "workflow/DiscEjector.h"

#include <QCoroTask>

#include <QDBusConnection>
#include <QString>
#include <QUrl>

#include <optional>
#include <stop_token>

namespace tonearm {

/// Keeps the audio CDs in this machine's drives mounted as long as it lives, and ejects them. Without
/// UDisks2 there are none. Main thread; destruction waits for the unmounting with an event loop.
class OpticalDrives : public DiscEjector
{
public:
    /// `program` is tonearm-cddafs, and `folder` where volumes are mounted.
    OpticalDrives(const QUrl &program, const QString &folder);
    ~OpticalDrives() override;
    OpticalDrives(const OpticalDrives &) = delete;
    OpticalDrives &operator=(const OpticalDrives &) = delete;

    /// From now on the drives are those that the service on this bus, the system's, knows. Before, and
    /// with a bus that isn't connected, there are none.
    void follow(const QDBusConnection &bus);

    /// Unmounts even a volume whose files are open, and ends when the drive has opened; an image that
    /// somebody has mounted is unmounted only. A disc that its drive keeps is mounted again. Throws
    /// UDisksError, ProcessRunnerError, and std::system_error if nothing is mounted there or the drive
    /// isn't known.
    QCoro::Task<> eject(QUrl volumeURL, std::stop_token stop) override;

private:
    void refresh();
    QCoro::Task<> followDrives(std::stop_token stop);
    QCoro::Task<> unmount(QUrl volumeURL, QString source, std::stop_token stop);
    QCoro::Task<> open(QString source, std::stop_token stop);

    ProcessRunner m_processRunner;
    bool m_isAsking = false;
    bool m_hasChangedMeanwhile = false;
    DiscMounts m_mounts;
    // Behind the mounts, whose end runs an event loop: nobody is to be told of changes then.
    std::optional<UDisks> m_udisks;
    // Last, so that the tasks end while all else is still there.
    TaskScope m_tasks;
};

} // namespace tonearm
