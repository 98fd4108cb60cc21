// SPDX-License-Identifier: GPL-3.0-or-later
// What the editor shows for the selected rows, and what typing does to them.
#include "helpers/EditorFixture.h"
#include "helpers/Printing.h"
#include "tageditor/PendingEdits.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::EditorFixture;
using test::rowOf;
using test::tagsWith;
using Field = EditableTagField;

namespace {

class EditorSelection : public testing::Test
{
protected:
    void showArtists(const QStringList &artists)
    {
        QList<EditableAudioFile> rows;
        for (const QString &artist : artists)
            rows.append(rowOf(QString::number(rows.size()), tagsWith(Field::artist, artist)));
        m_fixture.show(rows);
    }

    QUrl urlOf(qsizetype index) const { return m_model.files.value().at(index).url; }

    EditorFixture m_fixture;
    MetadataEditorModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(EditorSelection, OfANewModelIsEmptyLikeAllElse)
{
    EXPECT_EQ(m_model.folderURL.value(), std::nullopt);
    EXPECT_FALSE(m_model.hasLoadedFolder.value());
    EXPECT_EQ(m_model.selectionSummary(), u"0 files · 0 selected"_s);
    EXPECT_EQ(m_model.sortOrder.value(), defaultRowOrder());
    EXPECT_EQ(m_model.commonValue(Field::artist), CommonValue::none());
    EXPECT_EQ(m_model.placeholder(Field::artist), u"Artist"_s);
    EXPECT_FALSE(m_model.hasPendingChanges());
    EXPECT_FALSE(m_model.canSave());
    EXPECT_EQ(m_model.overwriteWarning(), std::nullopt);
    EXPECT_TRUE(m_model.genreSuggestions().isEmpty());
}

TEST_F(EditorSelection, IsSummedUp)
{
    showArtists({u"A"_s});
    EXPECT_EQ(m_model.selectionSummary(), u"1 file · 1 selected"_s);
    showArtists({u"A"_s, u"B"_s, u"C"_s});
    m_model.setSelection({urlOf(1)});
    EXPECT_EQ(m_model.selectionSummary(), u"3 files · 1 selected"_s);
}

TEST_F(EditorSelection, TakesInNoUnreadableAndNoUnknownRow)
{
    EditableAudioFile broken = rowOf(u"broken"_s);
    broken.unreadableReason = u"Tags couldn't be read."_s;
    m_fixture.show({rowOf(u"a"_s), broken});
    m_model.setSelection({rowOf(u"a"_s).url, broken.url, rowOf(u"elsewhere"_s).url});
    EXPECT_EQ(m_model.selection.value(), QSet<QUrl>{rowOf(u"a"_s).url});
    EXPECT_EQ(m_model.selectedFiles(), QList<EditableAudioFile>{rowOf(u"a"_s)});
}

TEST_F(EditorSelection, IsToldInTheOrderOfTheRows)
{
    showArtists({u"C"_s, u"A"_s, u"B"_s});
    QStringList artists;
    for (const EditableAudioFile &row : m_model.selectedFiles())
        artists.append(row.tags.artist);
    EXPECT_EQ(artists, QStringList({u"C"_s, u"A"_s, u"B"_s}));
}

TEST_F(EditorSelection, ShowsAValueThatAllHaveInCommon)
{
    showArtists({u"A"_s, u"A"_s});
    EXPECT_EQ(m_model.commonValue(Field::artist), CommonValue::value(u"A"_s));
    EXPECT_EQ(m_model.placeholder(Field::artist), u"Artist"_s);
    EXPECT_EQ(m_model.commonValue(Field::title), CommonValue::value(u""_s));
    EXPECT_EQ(m_model.placeholder(Field::title), u"Song Title"_s);
}

TEST_F(EditorSelection, ShowsADashForValuesThatDiffer)
{
    showArtists({u"A"_s, u"B"_s});
    EXPECT_EQ(m_model.commonValue(Field::artist), CommonValue::mixed());
    EXPECT_TRUE(m_model.commonValue(Field::artist).text.isEmpty());
    EXPECT_EQ(m_model.placeholder(Field::artist), u"-"_s);
    EXPECT_EQ(m_model.overwriteWarning(), std::nullopt);
    EXPECT_TRUE(m_model.changes.value().fieldEdits.isEmpty());
}

TEST_F(EditorSelection, ComparesValuesToTheLetter)
{
    showArtists({u"A"_s, u"A "_s});
    EXPECT_EQ(m_model.commonValue(Field::artist), CommonValue::mixed());
    showArtists({u"A"_s, u"A"_s, u"a"_s});
    EXPECT_EQ(m_model.commonValue(Field::artist), CommonValue::mixed());
}

TEST_F(EditorSelection, PutsWhatWasTypedInFrontOfWhatIsStored)
{
    showArtists({u"A"_s, u"B"_s});
    m_model.setSelection({urlOf(0)});
    m_model.setValue(u" C "_s, Field::artist);
    EXPECT_EQ(m_model.commonValue(Field::artist), CommonValue::value(u" C "_s));
    m_model.setSelection({urlOf(0), urlOf(1)});
    EXPECT_EQ(m_model.commonValue(Field::artist), CommonValue::mixed());
}

TEST_F(EditorSelection, GivesEveryFileWhatIsTypedAndWarnsOfValuesThatDiffer)
{
    showArtists({u"A"_s, u"B"_s});
    m_model.setValue(u"C"_s, Field::artist);
    EXPECT_EQ(m_model.commonValue(Field::artist), CommonValue::value(u"C"_s));
    EXPECT_EQ(m_model.overwrittenFields(), QList<Field>{Field::artist});
    EXPECT_EQ(
        m_model.overwriteWarning(),
        u"This value will be applied to all 2 selected files, replacing the different values they have now."_s);
    for (const EditableAudioFile &row : m_model.files.value())
        EXPECT_TRUE(m_model.isDirty(row));
}

TEST_F(EditorSelection, WarnsOfNothingUnlessEverySelectedFileIsEdited)
{
    showArtists({u"A"_s, u"B"_s, u"B"_s});
    m_model.setSelection({urlOf(0)});
    m_model.setValue(u"C"_s, Field::artist);
    EXPECT_EQ(m_model.overwriteWarning(), std::nullopt);
    m_model.setSelection({urlOf(0), urlOf(1)});
    EXPECT_EQ(m_model.overwriteWarning(), std::nullopt);
    m_model.setSelection({urlOf(1), urlOf(2)});
    m_model.setValue(u"C"_s, Field::artist);
    EXPECT_EQ(m_model.overwriteWarning(), std::nullopt);
    m_model.setSelection({urlOf(0), urlOf(1), urlOf(2)});
    EXPECT_TRUE(m_model.overwriteWarning()->contains(u"all 3 selected files"_s));
}

TEST_F(EditorSelection, NamesOverwrittenFieldsInTheirOrder)
{
    AudioFileTags first = tagsWith(Field::artist, u"A"_s);
    first.discNumber = u"1"_s;
    first.trackPosition = u"1"_s;
    m_fixture.show({rowOf(u"a"_s, first), rowOf(u"b"_s)});
    for (const Field field : {Field::discNumber, Field::artist, Field::title, Field::trackPosition})
        m_model.setValue(u"5"_s, field);
    EXPECT_EQ(m_model.overwrittenFields(),
              QList<Field>({Field::trackPosition, Field::artist, Field::discNumber}));
}

TEST_F(EditorSelection, OfNothingTakesNoEdits)
{
    showArtists({u"A"_s});
    m_model.setSelection({});
    m_model.completionMessage = u"Saved 1 file."_s;
    m_model.setValue(u"C"_s, Field::artist);
    EXPECT_EQ(m_model.changes.value(), TagChangeSet());
    EXPECT_EQ(m_model.completionMessage.value(), u"Saved 1 file."_s);
}

TEST_F(EditorSelection, KeepsAnEditAsItWasTyped)
{
    showArtists({u"A"_s, u"A"_s});
    m_model.completionMessage = u"Saved 1 file."_s;
    m_model.setValue(u"A "_s, Field::artist);
    EXPECT_EQ(m_model.completionMessage.value(), std::nullopt);
    EXPECT_EQ(m_model.changes.value().fieldEdits.value(urlOf(1)).value(Field::artist), u"A "_s);
    EXPECT_FALSE(m_model.hasPendingChanges());
    m_model.setValue(u""_s, Field::artist);
    EXPECT_TRUE(m_model.changes.value().fieldEdits.value(urlOf(1)).contains(Field::artist));
    EXPECT_TRUE(m_model.hasPendingChanges());
    m_model.setValue(u"A"_s, Field::artist);
    EXPECT_FALSE(m_model.hasPendingChanges());
    EXPECT_EQ(m_model.changes.value().fieldEdits.size(), 2);
}

TEST_F(EditorSelection, SuggestsItsOwnGenresOnceInTheOrderOfTheRows)
{
    QList<EditableAudioFile> rows;
    for (const QString &genre : {u"Zydeco"_s, u"Jazz"_s, u""_s, u"Ambient"_s, u"Zydeco"_s, u"jazz"_s})
        rows.append(rowOf(QString::number(rows.size()), tagsWith(Field::genre, genre)));
    m_fixture.show(rows);
    m_model.setValue(u"Typed"_s, Field::genre);
    EXPECT_EQ(m_model.genreSuggestions(), QStringList({u"Zydeco"_s, u"Ambient"_s, u"jazz"_s}));
    m_model.setSelection({rows.at(1).url, rows.at(3).url});
    EXPECT_EQ(m_model.genreSuggestions(), QStringList{u"Ambient"_s});
}

TEST_F(EditorSelection, StaysWhenTheRowsAreSortedAnew)
{
    showArtists({u"B"_s, u"A"_s});
    m_model.setSelection({urlOf(0)});
    const QUrl selected = urlOf(0);
    m_model.setSortOrder({{RowComparator::Key::artist}});
    EXPECT_EQ(m_fixture.names(), QStringList({u"1"_s, u"0"_s}));
    EXPECT_EQ(m_model.selection.value(), QSet<QUrl>{selected});
    m_model.setSortOrder({{RowComparator::Key::artist, Qt::DescendingOrder}});
    EXPECT_EQ(m_fixture.names(), QStringList({u"0"_s, u"1"_s}));
}

TEST_F(EditorSelection, CanBeSavedOnlyWhenThereIsReason)
{
    showArtists({u"A"_s});
    EXPECT_FALSE(m_model.canSave());
    m_model.setValue(u"B"_s, Field::artist);
    EXPECT_TRUE(m_model.canSave());
    m_model.ffmpegProblem = u"Missing."_s;
    EXPECT_FALSE(m_model.canSave());
    m_model.ffmpegProblem = std::nullopt;
    m_model.isLoading = true;
    EXPECT_FALSE(m_model.canSave());
    m_model.isLoading = false;
    m_model.isSaving = true;
    EXPECT_FALSE(m_model.canSave());
}

} // namespace tonearm
