// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QUrl>

namespace tonearm {

/// What a folder holds for the editor.
struct AudioFolderContents
{
    /// The files that can be edited, in the order in which people expect names.
    QList<QUrl> files;
    /// Audio files of kinds that the editor leaves out.
    qint64 skippedCount = 0;

    bool operator==(const AudioFolderContents &) const = default;
};

/// Lists the files directly in a folder by their names' extensions; hidden ones and folders are passed over,
/// links followed. A file that will turn out unreadable is listed. Throws std::system_error. Blocks.
AudioFolderContents audioFolderContents(const QUrl &folder);

} // namespace tonearm
