// SPDX-License-Identifier: GPL-3.0-or-later
// The end of a session with a folder.
#include "tageditor/MetadataEditorModel.h"

namespace tonearm {

bool MetadataEditorModel::requestClose()
{
    if (hasPendingChanges()) {
        isConfirmingCancel = true;
        return false;
    }
    reset();
    return true;
}

void MetadataEditorModel::reset()
{
    cancel(m_saveTask);
    leaveFolder();
    isConfirmingCancel = false;
    pendingFolderChange = std::nullopt;
    folderURL = std::nullopt;
    hasLoadedFolder = false;
    skippedAudioCount = 0;
    refusedSaves = QList<RefusedSave>();
    droppedTagReports = QList<RefusedSave>();
    dropsUnwritableTags = false;
}

} // namespace tonearm
