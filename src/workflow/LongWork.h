// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/Desktop.h"

#include <QList>
#include <QString>

#include <functional>

namespace tonearm {

/// The window that shows a piece of work.
struct WorkWindow
{
    /// Whether the user has it before them.
    std::function<bool()> isInFront;
    /// Called for a click on a notification, maybe when the window is gone.
    std::function<void()> bringToFront;
};

/// Decides what the desktop is told of the application's long work, whoever does it. Main thread.
///
/// While any work runs the machine is kept awake once, for the reason of the work that began first. The
/// progress is that of the work that has been running longest, so that it moves forward only.
class LongWork
{
public:
    /// Who does the work; one does one at a time.
    using Worker = const void *;

    /// The desktop has to outlive it.
    explicit LongWork(Desktop &desktop);

    /// Lets go of what is left.
    ~LongWork();

    LongWork(const LongWork &) = delete;
    LongWork &operator=(const LongWork &) = delete;

    /// The worker's work begins, or is now so far, from 0 to 1. The reason counts at the beginning only.
    void advance(Worker worker, const QString &reason, double fraction);

    /// It has ended, however it did. Nothing happens if the worker has none.
    void end(Worker worker);

    /// Tells the user what came of it, unless they see it in the window.
    void tell(const WorkResult &result, const WorkWindow &window);

private:
    struct Running
    {
        Worker worker;
        double fraction;
    };

    QList<Running>::iterator find(Worker worker);
    void showProgress();

    Desktop &m_desktop;
    // What has been running longest comes first.
    QList<Running> m_running;
};

} // namespace tonearm
