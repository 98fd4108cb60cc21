// SPDX-License-Identifier: GPL-3.0-or-later
// The window without a mouse.
#include "editorwindow/EditorWindowTest.h"

#include <QAccessible>

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Field = EditableTagField;

namespace {

struct EditorKeyboardTest : EditorWindowTest
{
    // The stops from the start on.
    QStringList stops(Qt::Key key = Qt::Key_Tab)
    {
        window.button(u"Choose Folder…"_s).setFocus();
        return WindowUser::stops(key);
    }

    static QStringList fields()
    {
        return {u"Artist"_s,
                u"Album Title"_s,
                u"Song Title"_s,
                u"Genre"_s,
                u"Choose from the default genres"_s,
                u"Track Position"_s,
                u"Year"_s,
                u"Disc Number"_s,
                u"Cover art drop area"_s};
    }
};

} // namespace

TEST_F(EditorKeyboardTest, GoesThroughAnEmptyWindowFromTopToBottom)
{
    EXPECT_EQ(stops(), QStringList(u"Choose Folder…"_s) + fields() +
                           QStringList({u"Save even if some tags can't be kept"_s, u"Cancel"_s}));
}

TEST_F(EditorKeyboardTest, GoesThroughAFilledWindowAndBack)
{
    show({filledRow(u"a.flac"_s)});
    model.setValue(u"New"_s, Field::artist);
    const QStringList all =
        QStringList({u"Choose Folder…"_s, u"Folder"_s, u"Files"_s, u"Sort by File Name"_s}) + fields() +
        QStringList({u"Save even if some tags can't be kept"_s, u"Cancel"_s, u"Save"_s});
    EXPECT_EQ(stops(), all);
    QStringList back = all;
    std::reverse(back.begin() + 1, back.end());
    EXPECT_EQ(stops(Qt::Key_Backtab), back);
}

TEST_F(EditorKeyboardTest, GoesThroughWhatIsLeftDuringASave)
{
    model.isSaving = true;
    window.button(u"Cancel"_s).setFocus();
    const QStringList left = WindowUser::stops(Qt::Key_Tab);
    EXPECT_EQ(left, (QStringList{u"Cancel"_s, u"Stop Saving"_s}));
}

TEST_F(EditorKeyboardTest, GoesThroughALoadToo)
{
    model.isLoading = true;
    EXPECT_EQ(stops().first(2), (QStringList{u"Choose Folder…"_s, u"Stop"_s}));
}

TEST_F(EditorKeyboardTest, NamesEverythingThatTakesTheKeyboard)
{
    show({filledRow(u"a.flac"_s)});
    int count = 0;
    for (QWidget *control : widget().findChildren<QWidget *>()) {
        if (!control->isVisible() || control->focusPolicy() == Qt::NoFocus || control->focusProxy())
            continue;
        EXPECT_NE(accessibleNameOf(*control), QString()) << control->metaObject()->className();
        ++count;
    }
    EXPECT_GE(count, 14);
}

TEST_F(EditorKeyboardTest, HasLabelsThatLeadToTheirBoxes)
{
    EXPECT_EQ(window.find<QLineEdit>(u"Disc Number"_s).accessibleName(), u"Disc Number"_s);
    auto *interface = QAccessible::queryAccessibleInterface(&window.box(u"Disc Number"_s));
    ASSERT_FALSE(interface->relations(QAccessible::Label).isEmpty());
    EXPECT_EQ(interface->relations(QAccessible::Label).first().first->text(QAccessible::Name),
              u"Disc Number"_s);
}

TEST_F(EditorKeyboardTest, IsEnoughForAnEdit)
{
    surroundings.songs().makeSong(u"a.flac"_s);
    window.button(u"Choose Folder…"_s).setFocus();
    press(Qt::Key_Space);
    ASSERT_TRUE(eventually([this] { return surroundings.panels().openCount() == 1; }));
    surroundings.panels().answer(surroundings.songs().url());
    ASSERT_TRUE(eventually([this] { return !model.selection.value().isEmpty(); }));
    WindowUser::tabTo(u"Year"_s);
    type(u"1984"_s);
    WindowUser::tabTo(u"Save"_s);
    press(Qt::Key_Space);
    window.waitFor(u"Saved 1 file."_s);
    EXPECT_EQ(surroundings.songs().tags(u"a.flac"_s).year, u"1984"_s);
    EXPECT_EQ(WindowUser::focusedName(), u"Cancel"_s);
    press(Qt::Key_Space);
    EXPECT_FALSE(isOpen());
}

} // namespace tonearm
