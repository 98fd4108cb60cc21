// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/SharedTexts.h"

#include <QSet>

#include <array>

namespace tonearm {

void shareTexts(QList<EditableAudioFile> &rows)
{
    constexpr std::array texts = {
        &AudioFileTags::trackPosition, &AudioFileTags::artist,     &AudioFileTags::album,
        &AudioFileTags::title,         &AudioFileTags::year,       &AudioFileTags::genre,
        &AudioFileTags::discNumber,    &AudioFileTags::trackTotal, &AudioFileTags::discTotal};
    QSet<QString> known;
    for (EditableAudioFile &row : rows) {
        // Of texts that are alike the set keeps the first.
        for (QString AudioFileTags::*text : texts)
            row.tags.*text = *known.insert(row.tags.*text);
    }
}

} // namespace tonearm
