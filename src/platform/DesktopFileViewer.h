// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/TaskScope.h"
#include "workflow/FileViewer.h"

namespace tonearm {

/// Asks the desktop's file manager over D-Bus to show files; where none answers, opens the folder.
class DesktopFileViewer : public FileViewer
{
public:
    void select(const QList<QUrl> &locations) override;

private:
    TaskScope m_tasks;
};

} // namespace tonearm
