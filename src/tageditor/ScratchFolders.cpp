// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/ScratchFolders.h"

#include <QMutexLocker>

#include <utility>

namespace tonearm {

ScratchFolders::ScratchFolders(QString base)
    : m_folders(std::move(base))
{
}

QString ScratchFolders::folder(TemporaryFolders::Purpose purpose)
{
    const QMutexLocker lock(&m_mutex);
    return m_folders.folder(purpose);
}

} // namespace tonearm
