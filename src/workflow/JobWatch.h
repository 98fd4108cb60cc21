// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/LongWork.h"

#include <QPropertyNotifier>

namespace tonearm {

class AppModel;

/// Tells LongWork of the jobs of the main window's model. Main thread.
class JobWatch
{
public:
    /// The model and `work` have to outlive it.
    JobWatch(AppModel &model, LongWork &work, WorkWindow window);
    ~JobWatch();
    JobWatch(const JobWatch &) = delete;
    JobWatch &operator=(const JobWatch &) = delete;

private:
    void follow();

    AppModel &m_model;
    LongWork &m_work;
    WorkWindow m_window;
    bool m_isRunning = false;
    QPropertyNotifier m_onTask;
    QPropertyNotifier m_onProgress;
};

} // namespace tonearm
