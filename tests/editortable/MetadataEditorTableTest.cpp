// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editortable/MetadataEditorTable.h"
#include "app/screens/editortable/EditorCellDelegate.h"
#include "app/screens/elements/IconView.h"
#include "app/screens/elements/TextStyle.h"
#include "editortable/ShownTable.h"
#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "helpers/Rendering.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QHelpEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolTip>

#include <numeric>

#include <cstdlib>
#include <optional>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::artistColumn;
using test::nameColumn;
using namespace test;
using Field = EditableTagField;
using Tester = QAbstractItemModelTester;

namespace {

QList<int> widthsOf(const EditorHeader &header)
{
    QList<int> widths;
    for (int column = 0; column < header.count(); ++column)
        widths.append(header.sectionSize(column));
    return widths;
}

int sumOf(const QList<int> &widths)
{
    return std::accumulate(widths.begin(), widths.end(), 0);
}

std::optional<IconName> placeholderIcon(ShownTable &shown)
{
    for (const IconView *icon : shown.table().findChildren<IconView *>())
        if (icon->isVisible())
            return icon->iconName();
    return std::nullopt;
}

// The look of one cell.
QImage lookOf(ShownTable &shown, int row, int column)
{
    const QRect cell = shown.list().visualRect(shown.list().model()->index(row, column));
    return rendered(*shown.list().viewport()).copy(cell);
}

// How dark a cell's text is in all.
int textInk(const QImage &look)
{
    const QColor ground = look.pixelColor(1, 1);
    int ink = 0;
    for (int y = 0; y < look.height(); ++y)
        for (int x = EditorCellDelegate::padding + EditorCellDelegate::dotSide + 1; x < look.width(); ++x)
            ink += std::abs(look.pixelColor(x, y).lightness() - ground.lightness());
    return ink;
}

QString tooltipAt(ShownTable &shown, int row, int column)
{
    const QPoint place = shown.list().visualRect(shown.list().model()->index(row, column)).center();
    QHelpEvent event(QEvent::ToolTip, place, shown.list().viewport()->mapToGlobal(place));
    QApplication::sendEvent(shown.list().viewport(), &event);
    return QToolTip::text();
}

} // namespace

TEST(MetadataEditorTable, AsksForAFolderAtFirst)
{
    ShownTable shown;
    EXPECT_TRUE(shown.shows(u"No Folder Chosen"_s));
    EXPECT_TRUE(shown.shows(u"Choose a folder of FLAC, MP3 or M4A files to edit their tags."_s));
    EXPECT_EQ(placeholderIcon(shown), IconName::folderGear);
    EXPECT_FALSE(shown.list().isVisible());
}

TEST(MetadataEditorTable, SaysThatTagsAreReadUntilThereAreRows)
{
    ShownTable shown;
    shown.model().hasLoadedFolder = true;
    shown.model().isLoading = true;
    EXPECT_TRUE(shown.shows(u"Reading Tags"_s));
    EXPECT_TRUE(shown.shows(u"Reading the tags of every file in the folder."_s));
    EXPECT_EQ(placeholderIcon(shown), IconName::waveform);
    shown.model().files = manyRows(1);
    EXPECT_FALSE(shown.shows(u"Reading Tags"_s));
    EXPECT_TRUE(shown.list().isVisible());
}

TEST(MetadataEditorTable, SaysThatAFolderHasNothingToEdit)
{
    ShownTable shown;
    shown.model().hasLoadedFolder = true;
    EXPECT_TRUE(shown.shows(u"No Editable Audio Files"_s));
    EXPECT_TRUE(shown.shows(
        u"There are no FLAC, MP3 or M4A files directly inside that folder. Subfolders aren't searched."_s));
    EXPECT_EQ(placeholderIcon(shown), IconName::folder);
    shown.model().reset();
    EXPECT_TRUE(shown.shows(u"No Folder Chosen"_s));
}

TEST(MetadataEditorTable, ShowsARealFolderAsItComesIn)
{
    EditorFixture fixture;
    MetadataEditorTable table(fixture.model(), nullptr);
    auto &list = *table.findChild<EditorRowList *>();
    const Tester tester(list.model(), Tester::FailureReportingMode::Fatal);
    fixture.songs().makeSong(u"b.flac"_s, tagList(u"1"_s, u"1"_s, u"A"_s));
    fixture.songs().makeSong(u"a.flac"_s, tagList(u"1"_s, u"2"_s, u"A"_s));
    ASSERT_NO_FATAL_FAILURE(fixture.open());
    EXPECT_EQ(list.model()->index(0, nameColumn).data(), u"b.flac"_s);
    EXPECT_EQ(list.model()->index(1, nameColumn).data(), u"a.flac"_s);
    EXPECT_EQ(list.selectionModel()->selectedRows().size(), 2);
    fixture.model().setValue(u"B"_s, Field::artist);
    EXPECT_EQ(list.model()->index(1, artistColumn).data(), u"B"_s);
    fixture.select({u"a.flac"_s});
    ASSERT_NO_FATAL_FAILURE(fixture.save());
    EXPECT_EQ(list.model()->index(1, artistColumn).data(), u"B"_s);
    EXPECT_EQ(list.selectionModel()->selectedRows(), QModelIndexList{list.model()->index(1, nameColumn)});
}

TEST(MetadataEditorTable, MarksAnEditWithADotAndBoldTextUnlessItComesToTheSame)
{
    ShownTable shown(
        {rowOf(u"a"_s, tagsWith(Field::artist, u"A"_s)), rowOf(u"b"_s, tagsWith(Field::artist, u"B"_s))});
    shown.model().setSelection({});
    const QImage first = lookOf(shown, 0, artistColumn);
    const QImage second = lookOf(shown, 1, artistColumn);
    shown.fixture().select({u"a"_s, u"b"_s});
    shown.model().setValue(u"A "_s, Field::artist);
    shown.model().setSelection({});
    EXPECT_EQ(lookOf(shown, 0, artistColumn), first);
    const QImage edited = lookOf(shown, 1, artistColumn);
    EXPECT_NE(edited, second);
    // The dot, where there was nothing but the ground.
    const QPoint dot(EditorCellDelegate::padding + EditorCellDelegate::dotSide / 2, edited.height() / 2);
    EXPECT_EQ(second.pixelColor(dot), second.pixelColor(1, edited.height() / 2));
    EXPECT_EQ(edited.pixelColor(dot), toneColour(Tone::secondary, shown.list().palette()));
}

TEST(MetadataEditorTable, MarksAnEditOnEveryRowThatItChanges)
{
    ShownTable shown(
        {rowOf(u"a"_s, tagsWith(Field::artist, u"A"_s)), rowOf(u"b"_s, tagsWith(Field::artist, u"B"_s))});
    shown.fixture().select({u"a"_s, u"b"_s});
    shown.model().setValue(u"HHH"_s, Field::artist);
    shown.model().setSelection({});
    // Bold strokes leave more ink than the same text unedited does.
    ShownTable plain({rowOf(u"a"_s, tagsWith(Field::artist, u"HHH"_s)), rowOf(u"b"_s)});
    plain.model().setSelection({});
    const int unedited = textInk(lookOf(plain, 0, artistColumn));
    for (const int row : {0, 1})
        EXPECT_GT(textInk(lookOf(shown, row, artistColumn)), unedited) << row;
}

TEST(MetadataEditorTable, GivesReasonsAndShortenedTextsAsTooltips)
{
    const QString tooLong = QString(100, u'w');
    ShownTable shown({unreadableRow(u"a"_s), rowOf(u"b"_s, tagsWith(Field::artist, tooLong))});
    EXPECT_EQ(tooltipAt(shown, 1, nameColumn), QString());
    EXPECT_TRUE(tooltipAt(shown, 0, nameColumn).contains(u"Tags couldn't be read."_s));
    EXPECT_TRUE(tooltipAt(shown, 1, artistColumn).contains(tooLong));
}

TEST(MetadataEditorTable, ReadsOutCellsAndWhatIsSpecialAboutThem)
{
    ShownTable shown({rowOf(u"a.flac"_s, tagsWith(Field::artist, u"A"_s)), unreadableRow(u"b.flac"_s)});
    shown.model().setValue(u"B"_s, Field::artist);
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(&shown.list());
    ASSERT_TRUE(list && list->tableInterface());
    EXPECT_EQ(list->text(QAccessible::Name), u"Files"_s);
    QAccessibleInterface *artist = list->tableInterface()->cellAt(0, artistColumn);
    EXPECT_EQ(artist->text(QAccessible::Name), u"B"_s);
    EXPECT_EQ(artist->text(QAccessible::Description), u"Edited"_s);
    EXPECT_TRUE(artist->state().selected);
    QAccessibleInterface *name = list->tableInterface()->cellAt(1, nameColumn);
    EXPECT_EQ(name->text(QAccessible::Name), u"b.flac"_s);
    EXPECT_EQ(name->text(QAccessible::Description), u"Tags couldn't be read."_s);
    EXPECT_FALSE(name->state().selected);
}

TEST(MetadataEditorTable, FillsItsWidthWithColumns)
{
    ShownTable shown(manyRows(3));
    for (const int width : {868, 1200, 800}) {
        shown.table().resize(width, 400);
        EXPECT_EQ(sumOf(widthsOf(shown.header())), shown.list().viewport()->width());
    }
}

TEST(MetadataEditorTable, ScrollsSidewaysRatherThanNarrowAColumnFurther)
{
    ShownTable shown(manyRows(3));
    shown.table().resize(400, 400);
    EXPECT_EQ(widthsOf(shown.header()), QList<int>({140, 60, 70, 70, 70, 45, 65, 50}));
    EXPECT_TRUE(eventually([&] { return shown.list().horizontalScrollBar()->maximum() > 0; }));
}

TEST(MetadataEditorTable, LetsTheUserResizeColumnsDownToTheirMinimum)
{
    ShownTable shown(manyRows(3));
    const int before = shown.header().sectionSize(artistColumn);
    shown.dragEdge(artistColumn, 20);
    EXPECT_EQ(shown.header().sectionSize(artistColumn), before + 20);
    EXPECT_EQ(sumOf(widthsOf(shown.header())), shown.list().viewport()->width());
    shown.dragEdge(artistColumn, -500);
    EXPECT_EQ(shown.header().sectionSize(artistColumn), 70);
    EXPECT_EQ(sumOf(widthsOf(shown.header())), shown.list().viewport()->width());
    const QList<int> widths = widthsOf(shown.header());
    shown.table().resize(1200, 400);
    shown.table().resize(868, 400);
    EXPECT_EQ(widthsOf(shown.header()), widths);
}

TEST(MetadataEditorTable, ResizesColumnsByKeysToo)
{
    ShownTable shown(manyRows(3));
    shown.header().setFocus();
    press(Qt::Key_Home);
    const int before = shown.header().sectionSize(nameColumn);
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(shown.header().sectionSize(nameColumn), before + 10);
    for (int step = 0; step < 20; ++step)
        press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(shown.header().sectionSize(nameColumn), 140);
}

} // namespace tonearm
