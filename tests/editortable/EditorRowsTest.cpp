// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editortable/EditorRows.h"
#include "app/screens/editortable/EditorColumns.h"
#include "app/screens/elements/Tooltip.h"
#include "helpers/EditorFixture.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>
#include <QSignalSpy>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::artistColumn;
using test::nameColumn;
using test::rowOf;
using test::tagsWith;
using Field = EditableTagField;
using Tester = QAbstractItemModelTester;

namespace {

EditableAudioFile unreadable(const QString &name)
{
    EditableAudioFile row = rowOf(name);
    row.unreadableReason = u"Tags couldn't be read."_s;
    return row;
}

class EditorRowsTest : public testing::Test
{
protected:
    QVariant cell(int row, int column, int role = Qt::DisplayRole) const
    {
        return m_rows.index(row, column).data(role);
    }

    void edit(int row, Field field, const QString &typed)
    {
        m_changes.fieldEdits[m_rows.files().at(row).url].insert(field, typed);
        m_rows.tellOfEdits();
    }

    TagChangeSet m_changes;
    EditorRows m_rows{[this]() -> const TagChangeSet & { return m_changes; }};
    Tester m_tester{&m_rows, Tester::FailureReportingMode::Fatal};
};

} // namespace

TEST_F(EditorRowsTest, ShowTheNameAndTheTagsOfAFile)
{
    AudioFileTags tags;
    tags.trackPosition = u"1"_s;
    tags.artist = u"Artist"_s;
    tags.album = u"Album"_s;
    tags.title = u"Title"_s;
    tags.year = u"1999"_s;
    tags.genre = u"Jazz"_s;
    tags.discNumber = u"2"_s;
    m_rows.setFiles({rowOf(u"a.flac"_s, tags)});
    QStringList texts;
    for (int column = 0; column < m_rows.columnCount(); ++column)
        texts.append(cell(0, column).toString());
    EXPECT_EQ(texts, QStringList({u"a.flac"_s, u"1"_s, u"Artist"_s, u"Album"_s, u"Title"_s, u"1999"_s,
                                  u"Jazz"_s, u"2"_s}));
}

TEST_F(EditorRowsTest, ShowTheNormalFormOfAnEdit)
{
    m_rows.setFiles({rowOf(u"a"_s, tagsWith(Field::artist, u"A"_s))});
    edit(0, Field::artist, u" B "_s);
    EXPECT_EQ(cell(0, artistColumn), u"B"_s);
    EXPECT_EQ(cell(0, artistColumn, EditorRows::isEditedRole), true);
    EXPECT_EQ(cell(0, artistColumn, Qt::AccessibleDescriptionRole), u"Edited"_s);
    EXPECT_EQ(cell(0, artistColumn + 1, EditorRows::isEditedRole), false);
    EXPECT_EQ(cell(0, nameColumn, EditorRows::isEditedRole), false);
}

TEST_F(EditorRowsTest, CountAnEditThatComesToTheSameAsNone)
{
    m_rows.setFiles({rowOf(u"a"_s, tagsWith(Field::artist, u"A"_s))});
    edit(0, Field::artist, u"A "_s);
    EXPECT_EQ(cell(0, artistColumn), u"A"_s);
    EXPECT_EQ(cell(0, artistColumn, EditorRows::isEditedRole), false);
    EXPECT_FALSE(cell(0, artistColumn, Qt::AccessibleDescriptionRole).isValid());
    edit(0, Field::artist, u""_s);
    EXPECT_EQ(cell(0, artistColumn), u""_s);
    EXPECT_EQ(cell(0, artistColumn, EditorRows::isEditedRole), true);
}

TEST_F(EditorRowsTest, SayOfAnUnreadableFileWhyAndNothingElse)
{
    m_rows.setFiles({unreadable(u"broken.mp3"_s)});
    EXPECT_EQ(cell(0, nameColumn), u"broken.mp3"_s);
    EXPECT_EQ(cell(0, nameColumn, Qt::ToolTipRole), plainTooltip(u"Tags couldn't be read."_s));
    EXPECT_EQ(cell(0, nameColumn, Qt::AccessibleDescriptionRole), u"Tags couldn't be read."_s);
    EXPECT_EQ(cell(0, nameColumn, EditorRows::isUnreadableRole), true);
    edit(0, Field::artist, u"A"_s);
    for (int column = 1; column < m_rows.columnCount(); ++column) {
        EXPECT_EQ(cell(0, column), u"—"_s);
        EXPECT_EQ(cell(0, column, EditorRows::isEditedRole), false);
    }
    EXPECT_FALSE(m_rows.flags(m_rows.index(0, nameColumn)) & Qt::ItemIsSelectable);
}

TEST_F(EditorRowsTest, SayNothingMoreOfAReadableFile)
{
    m_rows.setFiles({rowOf(u"a"_s)});
    EXPECT_FALSE(cell(0, nameColumn, Qt::ToolTipRole).isValid());
    EXPECT_FALSE(cell(0, nameColumn, Qt::AccessibleDescriptionRole).isValid());
    EXPECT_TRUE(m_rows.flags(m_rows.index(0, nameColumn)) & Qt::ItemIsSelectable);
}

TEST_F(EditorRowsTest, TellOfAnEditInOneRangeAndWithoutAReset)
{
    m_rows.setFiles({rowOf(u"a"_s), rowOf(u"b"_s), rowOf(u"c"_s)});
    const QSignalSpy resets(&m_rows, &QAbstractItemModel::modelReset);
    QSignalSpy changes(&m_rows, &QAbstractItemModel::dataChanged);
    edit(1, Field::artist, u"A"_s);
    EXPECT_TRUE(resets.isEmpty());
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes.first().at(0).toModelIndex(), m_rows.index(0, 1));
    EXPECT_EQ(changes.first().at(1).toModelIndex(), m_rows.index(2, 7));
}

TEST_F(EditorRowsTest, KeepWhatRefersToThemWhenTheyAreReadAgain)
{
    m_rows.setFiles({rowOf(u"a"_s), rowOf(u"b"_s)});
    const QPersistentModelIndex second = m_rows.index(1, artistColumn);
    m_rows.setFiles({rowOf(u"a"_s), rowOf(u"b"_s, tagsWith(Field::artist, u"B"_s))});
    EXPECT_EQ(second.data(), u"B"_s);
}

TEST_F(EditorRowsTest, KeepWhatRefersToThemWhenTheyAreSorted)
{
    m_rows.setFiles({rowOf(u"a"_s), rowOf(u"b"_s), rowOf(u"c"_s)});
    const QPersistentModelIndex first = m_rows.index(0, artistColumn);
    m_rows.setFiles({rowOf(u"b"_s), rowOf(u"c"_s), rowOf(u"a"_s)});
    EXPECT_EQ(first, m_rows.index(2, artistColumn));
    m_rows.setFiles({rowOf(u"b"_s), rowOf(u"c"_s), rowOf(u"d"_s)});
    EXPECT_FALSE(first.isValid());
}

TEST_F(EditorRowsTest, ComeAndGo)
{
    m_rows.setFiles({rowOf(u"a"_s)});
    EXPECT_EQ(m_rows.rowCount(), 1);
    m_rows.setFiles({});
    EXPECT_EQ(m_rows.rowCount(), 0);
    const QSignalSpy changes(&m_rows, &QAbstractItemModel::dataChanged);
    m_rows.tellOfEdits();
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(EditorRowsTest, HaveTheColumnsTitles)
{
    EXPECT_EQ(m_rows.headerData(0, Qt::Horizontal), u"File Name"_s);
    EXPECT_EQ(m_rows.headerData(7, Qt::Horizontal), u"Disc Number"_s);
    EXPECT_FALSE(m_rows.headerData(8, Qt::Horizontal).isValid());
    EXPECT_FALSE(m_rows.headerData(0, Qt::Vertical).isValid());
}

} // namespace tonearm
