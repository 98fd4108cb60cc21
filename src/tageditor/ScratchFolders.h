// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/TemporaryFolders.h"

#include <QMutex>
#include <QString>

namespace tonearm {

/// The editor's places in the system's temporary directory, for use from several threads at once.
class ScratchFolders
{
public:
    /// `base` is the system's temporary directory, or a test's own.
    explicit ScratchFolders(QString base);

    /// The folder for a purpose, made if it isn't there. Throws std::system_error. Blocks.
    QString folder(TemporaryFolders::Purpose purpose);

private:
    QMutex m_mutex;
    TemporaryFolders m_folders;
};

} // namespace tonearm
