// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/TemporaryFolders.h"

#include <QByteArray>
#include <QMutex>
#include <QString>
#include <QUrl>

namespace tonearm {

/// The folder of the pictures that the application makes or downloads. Thread-safe.
class ArtworkFolder
{
public:
    /// `base` is the system's temporary directory, or a test's own.
    explicit ArtworkFolder(QString base);

    /// Writes a new file named "<UUID>-<suffix>" and returns its place. A suffix that is too long for a
    /// file's name loses characters in front of its extension. Throws std::system_error, and then leaves no
    /// file. Blocks.
    QUrl save(QByteArrayView bytes, const QString &suffix);

    /// Deletes a file that lies in this folder. Any other is the user's and isn't touched. A failure is
    /// ignored. Blocks.
    void discard(const QUrl &url);

private:
    QString path();

    QMutex m_mutex;
    TemporaryFolders m_folders;
};

} // namespace tonearm
