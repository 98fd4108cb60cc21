// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QUrl>

namespace tonearm {

/// The system's program for looking at files and folders. Main thread.
class FileViewer
{
public:
    virtual ~FileViewer() = default;

    /// Brings the viewer up with these files or folders selected. Returns at once; nobody is told of a
    /// failure.
    virtual void select(const QList<QUrl> &locations) = 0;
};

} // namespace tonearm
