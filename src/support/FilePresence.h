// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/FileDescriptor.h"
#include "support/TaskScope.h"

#include <QProperty>
#include <QSocketNotifier>
#include <QString>

#include <memory>
#include <optional>

namespace tonearm {

/// Whether a file is there, as a value that can be observed. Its thread never waits for the disk.
///
/// It notices by itself when the file comes or goes, and when its folder does. Whoever needs to know of
/// more, of a change further up say, asks for a look.
class FilePresence
{
public:
    FilePresence() = default;
    FilePresence(const FilePresence &) = delete;
    FilePresence &operator=(const FilePresence &) = delete;

    /// It is about this file from now on, which counts as there until a look has shown otherwise; or
    /// about none, which isn't there.
    void follow(const std::optional<QString> &path);

    /// Looks again, in the background.
    void look();

    bool isThere() const { return m_isThere.value(); }

private:
    void startWatch();
    void readWatch();

    QString m_path;
    QProperty<bool> m_isThere;
    // A newer look knows better than an older one that comes back later.
    int m_latestLook = 0;
    // Shared with the looks, which add to what it watches.
    std::shared_ptr<FileDescriptor> m_watch;
    std::unique_ptr<QSocketNotifier> m_onChange;
    TaskScope m_tasks;
};

} // namespace tonearm
