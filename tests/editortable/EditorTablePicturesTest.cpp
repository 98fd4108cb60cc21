// SPDX-License-Identifier: GPL-3.0-or-later
#include "editortable/ShownTable.h"
#include "helpers/PictureTest.h"

// Pictures of the table for people to look at, light and dark.
namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Field = EditableTagField;

namespace {

class EditorTablePictures : public PictureTest
{
protected:
    static void keepTable(ShownTable &shown, const QString &name)
    {
        shown.table().setContentsMargins(16, 16, 16, 16);
        keep(shown.table(), name);
    }
};

QList<EditableAudioFile> someSongs()
{
    QList<EditableAudioFile> rows;
    const QStringList titles = {u"Morning"_s, u"A Rather Long Title of a Song, in Two Parts"_s,
                                u"Noon"_s,    u"Afternoon"_s,
                                u"Evening"_s, u"Night"_s};
    for (const QString &title : titles) {
        AudioFileTags tags;
        tags.trackPosition = QString::number(rows.size() + 1);
        tags.artist = u"The Quartet"_s;
        tags.album = u"Hours of the Day"_s;
        tags.title = title;
        tags.year = u"1987"_s;
        tags.genre = u"Jazz"_s;
        tags.discNumber = u"1"_s;
        rows.append(rowOf(u"0%1 %2.flac"_s.arg(tags.trackPosition, title), tags));
    }
    rows.insert(3, unreadableRow(u"03b Broken Recording.mp3"_s));
    return rows;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(LightAndDark, EditorTablePictures, testing::Bool());

TEST_P(EditorTablePictures, OfEditsAndASelection)
{
    ShownTable shown(someSongs());
    shown.model().setSelection({shown.model().files.value().at(1).url, shown.model().files.value().at(2).url,
                                shown.model().files.value().at(5).url});
    shown.model().setValue(u"The New Quartet"_s, Field::artist);
    shown.model().setValue(u"9"_s, Field::trackPosition);
    shown.model().setSelection(
        {shown.model().files.value().at(2).url, shown.model().files.value().at(4).url});
    shown.model().skippedAudioCount = 3;
    shown.model().isReadingArtwork = true;
    shown.list().setFocus();
    keepTable(shown, u"editor-table"_s);
}

TEST_P(EditorTablePictures, OfANarrowTable)
{
    ShownTable shown(someSongs());
    shown.table().resize(330, 300);
    shown.model().skippedAudioCount = 3;
    shown.model().isReadingArtwork = true;
    shown.header().setFocus();
    keepTable(shown, u"editor-table-narrow"_s);
}

TEST_P(EditorTablePictures, OfAWideTable)
{
    ShownTable shown(someSongs());
    shown.table().resize(1300, 300);
    shown.model().setSelection({});
    keepTable(shown, u"editor-table-wide"_s);
}

TEST_P(EditorTablePictures, OfThePlaceholders)
{
    ShownTable shown;
    keepTable(shown, u"editor-table-no-folder"_s);
    shown.model().hasLoadedFolder = true;
    shown.model().skippedAudioCount = 2;
    keepTable(shown, u"editor-table-nothing-editable"_s);
    shown.model().isLoading = true;
    keepTable(shown, u"editor-table-reading"_s);
}

} // namespace tonearm
