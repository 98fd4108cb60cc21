// SPDX-License-Identifier: GPL-3.0-or-later
// The genre's box and the menu beside it.
#include "editorwindow/EditorWindowTest.h"

#include "app/screens/editorwindow/GenreTagField.h"
#include "app/screens/elements/MenuButton.h"
#include "app/screens/elements/Tooltip.h"
#include "helpers/Menus.h"
#include "workflow/records/GenreCatalog.h"

#include <QTest>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct EditorGenreMenuTest : EditorWindowTest
{
    MenuButton &button() { return window.find<MenuButton>(u"Choose from the default genres"_s); }

    QMenu &opened()
    {
        click(button());
        return openMenu();
    }

    QStringList entries()
    {
        QMenu &menu = opened();
        const QStringList texts = entriesOf(menu);
        menu.close();
        return texts;
    }

    void showGenres(const QStringList &genres)
    {
        QList<EditableAudioFile> rows;
        for (const QString &genre : genres)
            rows.append(rowOf(u"%1.flac"_s.arg(rows.size()), tagsWith(EditableTagField::genre, genre)));
        show(rows);
    }
};

} // namespace

TEST_F(EditorGenreMenuTest, HasTooltips)
{
    EXPECT_EQ(window.box(u"Genre"_s).toolTip(),
              plainTooltip(u"Written to the GENRE tag, which is what media servers group and browse by. Type "
                           u"anything, or pick from the list — the list is a set of defaults, not a set of "
                           u"allowed values."_s));
    EXPECT_EQ(button().toolTip(), u"Choose from the default genres"_s);
    EXPECT_EQ(button().width(), 32);
    EXPECT_TRUE(button().autoRaise());
}

TEST_F(EditorGenreMenuTest, OffersTheDefaults)
{
    EXPECT_EQ(entries(), (QStringList{u"Clear Genre"_s, u"-"_s, u"Jazz"_s, u"Rock"_s}));
}

TEST_F(EditorGenreMenuTest, OffersWhatTheSelectedFilesHaveToo)
{
    showGenres({u"Skiffle"_s, u"Jazz"_s, u""_s, u"Skiffle"_s, u"R&B"_s});
    EXPECT_EQ(entries(),
              (QStringList{u"Clear Genre"_s, u"-"_s, u"Skiffle"_s, u"R&&B"_s, u"-"_s, u"Jazz"_s, u"Rock"_s}));
    select({u"1.flac"_s});
    EXPECT_EQ(entries(), (QStringList{u"Clear Genre"_s, u"-"_s, u"Jazz"_s, u"Rock"_s}));
}

TEST_F(EditorGenreMenuTest, CanDoWithoutDefaults)
{
    showGenres({u"Skiffle"_s});
    const GenreCatalog none(surroundings.path(u"missing.json"_s));
    GenreTagField field(model, none);
    ASSERT_TRUE(showActive(field));
    click(*named<MenuButton>(field, u"Choose from the default genres"_s));
    EXPECT_EQ(entriesOf(openMenu()), (QStringList{u"Clear Genre"_s, u"-"_s, u"Skiffle"_s}));
    openMenu().close();
}

TEST_F(EditorGenreMenuTest, SetsTheGenreOfAllSelectedFiles)
{
    showGenres({u"Skiffle"_s, u"R&B"_s});
    pick(opened(), u"Rock"_s);
    EXPECT_EQ(window.box(u"Genre"_s).text(), u"Rock"_s);
    EXPECT_EQ(model.commonValue(EditableTagField::genre), CommonValue::value(u"Rock"_s));
    EXPECT_TRUE(window.shows(u"Genre will be overwritten on every selected file"_s));
    pick(opened(), u"R&&B"_s);
    EXPECT_EQ(model.commonValue(EditableTagField::genre), CommonValue::value(u"R&B"_s));
}

TEST_F(EditorGenreMenuTest, ClearsTheGenre)
{
    showGenres({u"Skiffle"_s, u"Jazz"_s});
    pick(opened(), u"Clear Genre"_s);
    EXPECT_EQ(model.commonValue(EditableTagField::genre), CommonValue::value(QString()));
    EXPECT_TRUE(model.hasPendingChanges());
}

TEST_F(EditorGenreMenuTest, IsUsedByKeyboard)
{
    showGenres({u"Skiffle"_s});
    button().setFocus();
    press(Qt::Key_Space);
    QMenu &menu = openMenu();
    for (int step = 0; step < 3; ++step)
        QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_EQ(window.box(u"Genre"_s).text(), u"Jazz"_s);
    EXPECT_TRUE(button().hasFocus());
}

TEST_F(EditorGenreMenuTest, StaysNarrowWhateverTheGenre)
{
    showGenres({QString(500, u'x')});
    EXPECT_LT(opened().width(), 500);
    openMenu().close();
}

} // namespace tonearm
