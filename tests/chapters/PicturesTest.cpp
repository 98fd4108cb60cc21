// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/chapters/ChapterTable.h"
#include "chapters/ChapterRows.h"
#include "helpers/PictureTest.h"

#include <QVBoxLayout>

// Pictures of the table for people to look at, light and dark.
namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

class ChapterPictures : public PictureTest
{
};

} // namespace

INSTANTIATE_TEST_SUITE_P(LightAndDark, ChapterPictures, testing::Bool());

TEST_P(ChapterPictures, OfTheChapterTable)
{
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    auto *table = new ChapterTable;
    QList<ChapterTableRow> rows = chapterRows(999);
    rows[1].songTitle.clear();
    rows[2].sourceTitle = u"A source title with many more words than there is room"_s;
    rows[3].songTitle = u"שיר הלל (live) 42"_s;
    rows[4].length = u"1:02:03"_s;
    table->setRows(rows);
    column->addWidget(table);
    window.resize(820, 330);
    keep(window, u"chapter-table"_s);
}

TEST_P(ChapterPictures, OfTheChapterTablesEnd)
{
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    auto *table = new ChapterTable;
    table->setSourceTitleHeader(u"Track"_s);
    table->setRows(chapterRows(999));
    column->addWidget(table);
    window.resize(820, 330);
    ASSERT_TRUE(showActive(window));
    table->setFocus();
    press(Qt::Key_End, Qt::ControlModifier);
    keep(window, u"chapter-table-end"_s);
}

TEST_P(ChapterPictures, OfPlaceholders)
{
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    column->addWidget(new ChapterTable);
    window.resize(820, 330);
    keep(window, u"chapter-table-empty"_s);
}

} // namespace tonearm
