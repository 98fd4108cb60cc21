// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/EditableTagField.h"

#include <QString>

#include <optional>

namespace tonearm {

/// What the editor knows of one file. A text is empty where the file has no value.
struct AudioFileTags
{
    QString trackPosition;
    QString artist;
    QString album;
    QString title;
    QString year;
    QString genre;
    QString discNumber;
    QString trackTotal;
    QString discTotal;
    bool hasAttachedPicture = false;
    /// Of the first attached picture.
    std::optional<qint64> artworkPixelWidth;
    std::optional<qint64> artworkPixelHeight;

    /// The text of one field.
    const QString &value(EditableTagField field) const;

    bool operator==(const AudioFileTags &) const = default;
};

} // namespace tonearm
