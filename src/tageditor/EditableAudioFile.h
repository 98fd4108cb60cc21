// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/AudioFileTags.h"

#include <QDateTime>
#include <QString>
#include <QUrl>

#include <optional>

namespace tonearm {

/// One row of the editor.
struct EditableAudioFile
{
    /// Identifies the row.
    QUrl url;
    AudioFileTags tags;
    /// Present when the file's tags couldn't be read.
    std::optional<QString> unreadableReason;
    /// When the content was last changed, as of loading; absent if that couldn't be told.
    std::optional<QDateTime> modificationDate;

    bool operator==(const EditableAudioFile &) const = default;
};

} // namespace tonearm
