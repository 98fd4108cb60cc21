// SPDX-License-Identifier: GPL-3.0-or-later
// Closing the window while a job runs.
#include "workflow/AppModel.h"

namespace tonearm {

bool AppModel::requestClose()
{
    if (!encodingTask.value()) {
        // What was asked or agreed upon is settled; a window that opens again starts afresh.
        pendingClose = std::nullopt;
        m_isClosing = false;
        return true;
    }
    if (!m_isClosing.value() && !pendingClose.value())
        pendingClose = PendingClose();
    return false;
}

void AppModel::confirmPendingClose()
{
    if (!pendingClose.value())
        return;
    pendingClose = std::nullopt;
    m_isClosing = true;
    cancelEncoding();
}

bool AppModel::isReadyToClose() const
{
    return m_isClosing.value() && !encodingTask.value();
}

} // namespace tonearm
