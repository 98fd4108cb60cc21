// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FileName.h"

#include "support/Text.h"

namespace tonearm {

QString fittedFileName(const QString &stem, const QString &ending)
{
    const qsizetype room = maximumNameBytes - ending.toUtf8().size();
    if (stem.toUtf8().size() <= room)
        return stem + ending;
    qsizetype used = 0;
    qsizetype kept = 0;
    for (const QStringView character : characters(stem)) {
        used += character.toUtf8().size();
        if (used > room)
            break;
        kept += character.size();
    }
    return stem.left(kept) + ending;
}

} // namespace tonearm
