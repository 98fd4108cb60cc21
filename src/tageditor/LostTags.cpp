// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/LostTags.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QStringList excusedKeys(const QStringList &metadata)
{
    QStringList keys = {u"encoder"_s, u"major_brand"_s, u"minor_version"_s, u"compatible_brands"_s,
                        u"creation_time"_s};
    for (qsizetype index = 1; index < metadata.size(); index += 2) {
        const QString key = metadata[index].section(u'=', 0, 0);
        if (!key.isEmpty())
            keys.append(key.toLower());
    }
    return keys;
}

} // namespace

QStringList lostTags(const TagTable &before, const TagTable &after, const QStringList &metadata)
{
    const QStringList excused = excusedKeys(metadata);
    QStringList result;
    for (auto tag = before.keyBegin(); tag != before.keyEnd(); ++tag) {
        if (!after.contains(*tag) && !excused.contains(*tag))
            result.append(*tag);
    }
    result.sort();
    return result;
}

} // namespace tonearm
