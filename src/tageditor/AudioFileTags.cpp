// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/AudioFileTags.h"

namespace tonearm {

const QString &AudioFileTags::value(EditableTagField field) const
{
    switch (field) {
    case EditableTagField::trackPosition:
        return trackPosition;
    case EditableTagField::artist:
        return artist;
    case EditableTagField::album:
        return album;
    case EditableTagField::title:
        return title;
    case EditableTagField::year:
        return year;
    case EditableTagField::genre:
        return genre;
    case EditableTagField::discNumber:
        return discNumber;
    }
    Q_UNREACHABLE();
}

} // namespace tonearm
