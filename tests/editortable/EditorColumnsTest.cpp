// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editortable/EditorColumns.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace tonearm {

using namespace Qt::StringLiterals;
using Key = RowComparator::Key;

TEST(EditorColumns, HaveTheirTitlesInTheirOrder)
{
    QStringList titles;
    for (const EditorColumn &column : editorColumns())
        titles.append(column.title);
    EXPECT_EQ(titles, QStringList({u"File Name"_s, u"Track Position"_s, u"Artist"_s, u"Album Title"_s,
                                   u"Song Title"_s, u"Year"_s, u"Genre"_s, u"Disc Number"_s}));
}

TEST(EditorColumns, HaveTheirWidths)
{
    QList<int> minimums;
    QList<int> ideals;
    for (const EditorColumn &column : editorColumns()) {
        minimums.append(column.minimumWidth);
        ideals.append(column.idealWidth);
    }
    EXPECT_EQ(minimums, QList<int>({140, 60, 70, 70, 70, 45, 65, 50}));
    EXPECT_EQ(ideals, QList<int>({170, 80, 105, 105, 115, 55, 95, 75}));
}

TEST(EditorColumns, AreSortedByWhatTheyShow)
{
    QList<Key> keys;
    for (const EditorColumn &column : editorColumns())
        keys.append(column.sortKey);
    EXPECT_EQ(keys, QList<Key>({Key::fileName, Key::trackPosition, Key::artist, Key::album, Key::title,
                                Key::year, Key::genre, Key::discNumber}));
    EXPECT_EQ(editorColumnOf(Key::year), 5);
}

} // namespace tonearm
