// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/RowOrder.h"

#include "support/Numbers.h"
#include "support/PathText.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>
#include <vector>

namespace tonearm {

namespace {

using Key = RowComparator::Key;

// What rows are compared by for one rule: numbers or texts. Taken from each row once, since thousands of rows
// are compared many thousand times; a text only when the rules in front have found no difference.
class SortKeys
{
public:
    SortKeys(const QList<EditableAudioFile> &rows, RowComparator rule)
        : m_rows(rows)
        , m_rule(rule)
    {
        if (rule.key == Key::discNumber)
            takeNumbers(discSortKey);
        else if (rule.key == Key::trackPosition)
            takeNumbers(trackSortKey);
        else
            m_texts.resize(rows.size());
    }

    int compare(qsizetype first, qsizetype second)
    {
        int result = 0;
        if (!m_texts.isEmpty())
            result = text(first).compare(text(second));
        else if (m_numbers[first] != m_numbers[second])
            result = m_numbers[first] < m_numbers[second] ? -1 : 1;
        return m_rule.order == Qt::AscendingOrder ? result : -result;
    }

private:
    void takeNumbers(qint64 (*keyOf)(const AudioFileTags &))
    {
        m_numbers.reserve(m_rows.size());
        for (const EditableAudioFile &row : m_rows)
            m_numbers.append(keyOf(row.tags));
    }

    const QString &text(qsizetype row)
    {
        QString &known = m_texts[row];
        if (known.isNull())
            known = textOf(m_rows[row]);
        return known;
    }

    QString textOf(const EditableAudioFile &row) const
    {
        switch (m_rule.key) {
        case Key::fileName:
            return lastPathComponent(row.url);
        case Key::artist:
            return row.tags.artist;
        case Key::album:
            return row.tags.album;
        case Key::title:
            return row.tags.title;
        case Key::year:
            return row.tags.year;
        case Key::genre:
            return row.tags.genre;
        case Key::discNumber:
        case Key::trackPosition:
            break;
        }
        Q_UNREACHABLE();
    }

    const QList<EditableAudioFile> &m_rows;
    RowComparator m_rule;
    QList<qint64> m_numbers;
    QStringList m_texts;
};

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
    std::vector<SortKeys> rules;
    for (const RowComparator &rule : order)
        rules.emplace_back(rows, rule);
    const auto comesFirst = [&rules](qsizetype first, qsizetype second) {
        for (SortKeys &keys : rules)
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
