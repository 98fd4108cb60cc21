// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editortable/EditorColumns.h"

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

using Field = EditableTagField;
using Key = RowComparator::Key;

EditorColumn numberColumn(Field field, Key key, int minimumWidth, int idealWidth)
{
    return {.title = label(field),
            .minimumWidth = minimumWidth,
            .idealWidth = idealWidth,
            .sortKey = key,
            .field = field};
}

EditorColumn textColumn(Field field, Key key, int minimumWidth, int idealWidth)
{
    EditorColumn column = numberColumn(field, key, minimumWidth, idealWidth);
    column.isStretching = true;
    return column;
}

QList<EditorColumn> makeColumns()
{
    return {
        {.title = u"File Name"_s, .minimumWidth = 140, .idealWidth = 170, .isStretching = true},
        numberColumn(Field::trackPosition, Key::trackPosition, 60, 80),
        textColumn(Field::artist, Key::artist, 70, 105),
        textColumn(Field::album, Key::album, 70, 105),
        textColumn(Field::title, Key::title, 70, 115),
        numberColumn(Field::year, Key::year, 45, 55),
        textColumn(Field::genre, Key::genre, 65, 95),
        numberColumn(Field::discNumber, Key::discNumber, 50, 75),
    };
}

} // namespace

const QList<EditorColumn> &editorColumns()
{
    static const QList<EditorColumn> columns = makeColumns();
    return columns;
}

int editorColumnOf(RowComparator::Key key)
{
    const QList<EditorColumn> &columns = editorColumns();
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [key](const EditorColumn &column) { return column.sortKey == key; });
    return int(found - columns.begin());
}

} // namespace tonearm
