// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/RowOrder.h"

#include "support/Numbers.h"
#include "support/PathText.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

namespace tonearm {

namespace {

using Key = RowComparator::Key;

// What all rows are compared by for one rule: numbers or texts. Taken from the rows once, since thousands of
// rows are compared many thousand times.
struct SortKeys
{
    int compare(qsizetype first, qsizetype second) const
    {
        int result = 0;
        if (!texts.isEmpty())
            result = texts[first].compare(texts[second]);
        else if (numbers[first] != numbers[second])
            result = numbers[first] < numbers[second] ? -1 : 1;
        return order == Qt::AscendingOrder ? result : -result;
    }

    Qt::SortOrder order = Qt::AscendingOrder;
    QList<qint64> numbers = {};
    QStringList texts = {};
};

template <typename Value, typename KeyOf>
QList<Value> eachOf(const QList<EditableAudioFile> &rows, KeyOf keyOf)
{
    QList<Value> keys;
    keys.reserve(rows.size());
    for (const EditableAudioFile &row : rows)
        keys.append(keyOf(row));
    return keys;
}

SortKeys byNumber(const QList<EditableAudioFile> &rows, qint64 (*keyOf)(const AudioFileTags &))
{
    return {.numbers =
                eachOf<qint64>(rows, [keyOf](const EditableAudioFile &row) { return keyOf(row.tags); })};
}

SortKeys byTag(const QList<EditableAudioFile> &rows, EditableTagField field)
{
    return {.texts = eachOf<QString>(
                rows, [field](const EditableAudioFile &row) { return row.tags.value(field); })};
}

SortKeys keysOf(const QList<EditableAudioFile> &rows, Key key)
{
    switch (key) {
    case Key::fileName:
        return {.texts = eachOf<QString>(
                    rows, [](const EditableAudioFile &row) { return lastPathComponent(row.url); })};
    case Key::discNumber:
        return byNumber(rows, discSortKey);
    case Key::trackPosition:
        return byNumber(rows, trackSortKey);
    case Key::artist:
        return byTag(rows, EditableTagField::artist);
    case Key::album:
        return byTag(rows, EditableTagField::album);
    case Key::title:
        return byTag(rows, EditableTagField::title);
    case Key::year:
        return byTag(rows, EditableTagField::year);
    case Key::genre:
        return byTag(rows, EditableTagField::genre);
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

QList<RowComparator> rowOrderLedBy(RowComparator::Key key, QList<RowComparator> earlier)
{
    const bool isTurning = !earlier.isEmpty() && earlier.first() == RowComparator{.key = key};
    earlier.removeIf([key](const RowComparator &rule) { return rule.key == key; });
    earlier.prepend({.key = key, .order = isTurning ? Qt::DescendingOrder : Qt::AscendingOrder});
    return earlier;
}

QList<EditableAudioFile> sortedRows(const QList<EditableAudioFile> &rows, const QList<RowComparator> &order)
{
    QList<SortKeys> rules;
    for (const RowComparator &rule : order) {
        rules.append(keysOf(rows, rule.key));
        rules.last().order = rule.order;
    }
    const auto comesFirst = [&rules = std::as_const(rules)](qsizetype first, qsizetype second) {
        for (const SortKeys &keys : rules)
            if (const int result = keys.compare(first, second); result != 0)
                return result < 0;
        return false;
    };
    QList<qsizetype> places(rows.size());
    std::iota(places.begin(), places.end(), 0);
    std::stable_sort(places.begin(), places.end(), comesFirst);
    QList<EditableAudioFile> sorted;
    sorted.reserve(rows.size());
    for (const qsizetype place : std::as_const(places))
        sorted.append(rows[place]);
    return sorted;
}

} // namespace tonearm
