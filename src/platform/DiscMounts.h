// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/DriveList.h"
#include "support/TaskScope.h"
#include "tools/ProcessRunner.h"

#include <QCoroTask>

#include <QFuture>
#include <QList>
#include <QPromise>
#include <QString>
#include <QUrl>

#include <memory>
#include <stop_token>

namespace tonearm {

/// The audio CDs that the application has mounted, each by a tonearm-cddafs of its own, which ends with
/// this object. Main thread.
class DiscMounts
{
public:
    /// `program` is tonearm-cddafs; `folder` is where the mount points are made, the folder too if it isn't
    /// there.
    DiscMounts(QUrl program, QString folder);

    /// Mounts the discs that haven't been yet, and unmounts all others. One that somebody has unmounted
    /// stays so. One that can't be mounted is left out without a word.
    void keepOnly(const QList<AudioDisc> &discs);

    /// Whether the disc in a device is one of those.
    bool contains(const QString &device) const;

    /// Unmounts the disc in a device, even if files of it are open, and suspends until that is done.
    QCoro::Task<> unmount(QString device);

    /// Mounts a disc that is still in its device again.
    void mountAgain(const QString &device);

private:
    struct Mount
    {
        AudioDisc disc;
        TaskHandle task;
        QFuture<void> end;
    };

    Mount *find(const QString &device);
    void start(Mount &mount);
    QCoro::Task<> serve(QString device, QFuture<void> previousEnd, std::shared_ptr<QPromise<void>> end,
                        std::stop_token stop);

    QUrl m_program;
    QString m_folder;
    ProcessRunner m_processRunner;
    QList<Mount> m_mounts;
    // By device: a disc is mounted when its predecessor has gone.
    QMap<QString, QFuture<void>> m_lastEnds;
    // Last, so that the tasks end while all else is still there.
    TaskScope m_tasks;
};

} // namespace tonearm
