// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/RowOrder.h"

#include "support/Numbers.h"
#include "support/PathText.h"

#include <algorithm>
#include <limits>

namespace tonearm {

namespace {

using Key = RowComparator::Key;

int compareNumbers(qint64 first, qint64 second)
{
    if (first == second)
        return 0;
    return first < second ? -1 : 1;
}

int compare(Key key, const EditableAudioFile &first, const EditableAudioFile &second)
{
    switch (key) {
    case Key::fileName:
        return lastPathComponent(first.url).compare(lastPathComponent(second.url));
    case Key::discNumber:
        return compareNumbers(discSortKey(first.tags), discSortKey(second.tags));
    case Key::trackPosition:
        return compareNumbers(trackSortKey(first.tags), trackSortKey(second.tags));
    case Key::artist:
        return first.tags.artist.compare(second.tags.artist);
    case Key::album:
        return first.tags.album.compare(second.tags.album);
    case Key::title:
        return first.tags.title.compare(second.tags.title);
    case Key::year:
        return first.tags.year.compare(second.tags.year);
    case Key::genre:
        return first.tags.genre.compare(second.tags.genre);
    }
    Q_UNREACHABLE();
}

} // namespace

qint64 discSortKey(const AudioFileTags &tags)
{
    return parseInteger(tags.discNumber).value_or(0);
}

qint64 trackSortKey(const AudioFileTags &tags)
{
    return parseInteger(tags.trackPosition).value_or(std::numeric_limits<qint64>::max());
}

QList<RowComparator> defaultRowOrder()
{
    return {{.key = Key::discNumber}, {.key = Key::trackPosition}, {.key = Key::fileName}};
}

QList<EditableAudioFile> sortedRows(QList<EditableAudioFile> rows, const QList<RowComparator> &order)
{
    const auto comesFirst = [&order](const EditableAudioFile &first, const EditableAudioFile &second) {
        for (const RowComparator &rule : order) {
            const int result = compare(rule.key, first, second);
            if (result != 0)
                return rule.order == Qt::AscendingOrder ? result < 0 : result > 0;
        }
        return false;
    };
    std::stable_sort(rows.begin(), rows.end(), comesFirst);
    return rows;
}

} // namespace tonearm
