// SPDX-License-Identifier: GPL-3.0-or-later
// The ways out of the window.
#include "editorwindow/EditorWindowTest.h"

#include "helpers/Contents.h"

#include <QFile>
#include <QLabel>
#include <QPointer>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Field = EditableTagField;

namespace {

struct WayOut
{
    const char *name;
    void (*go)(WindowUser &, QWidget &);
};

void byButton(WindowUser &user, QWidget &)
{
    click(user.button(u"Cancel"_s));
}

void byBox(WindowUser &, QWidget &window)
{
    window.close();
}

void byEscape(WindowUser &, QWidget &)
{
    press(Qt::Key_Escape);
}

void byControlW(WindowUser &, QWidget &)
{
    press(Qt::Key_W, Qt::ControlModifier);
}

struct EditorClosing : EditorWindowTest
{
    void edit()
    {
        show({filledRow(u"a.flac"_s)});
        window.fillIn(u"Artist"_s, u"New"_s);
    }

    // The window goes once the event loop runs.
    void expectGone()
    {
        EXPECT_FALSE(isOpen());
        EXPECT_TRUE(eventually([this] { return !windows.window(); }));
        EXPECT_TRUE(model.files.value().isEmpty());
        EXPECT_EQ(model.folderURL.value(), std::nullopt);
        EXPECT_FALSE(model.hasLoadedFolder.value());
        EXPECT_FALSE(model.hasPendingChanges());
        EXPECT_FALSE(model.isConfirmingCancel.value());
    }

    void openAgain()
    {
        windows.open(model, surroundings.genres(), viewer);
        ASSERT_TRUE(showActive(widget()));
    }
};

struct EditorWayOut : EditorClosing, testing::WithParamInterface<WayOut>
{
    void leave() { GetParam().go(window, widget()); }
};

} // namespace

TEST_P(EditorWayOut, AsksNothingWithoutEdits)
{
    show({filledRow(u"a.flac"_s)});
    window.box(u"Artist"_s).setFocus();
    model.dropsUnwritableTags = true;
    leave();
    expectGone();
    EXPECT_FALSE(model.dropsUnwritableTags.value());
}

TEST_P(EditorWayOut, AsksBeforeEditsAreLost)
{
    edit();
    leave();
    const QMessageBox &dialog = window.dialog();
    EXPECT_EQ(dialog.text(), u"Discard your changes?"_s);
    EXPECT_EQ(dialog.informativeText(), u"The edits you've made haven't been written to disk. Closing now "
                                        u"leaves every file exactly as it is."_s);
    EXPECT_EQ(dialog.defaultButton(), &WindowUser::buttonIn(dialog, u"Keep Editing"_s));
    EXPECT_EQ(dialog.escapeButton(), &WindowUser::buttonIn(dialog, u"Keep Editing"_s));
    window.answer(u"Keep Editing"_s);
    window.waitUntilUndisturbed();
    EXPECT_FALSE(model.isConfirmingCancel.value());
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(window.box(u"Artist"_s).text(), u"New"_s);
    leave();
    window.answer(u"Discard Changes"_s);
    expectGone();
}

INSTANTIATE_TEST_SUITE_P(EachWay, EditorWayOut,
                         testing::Values(WayOut{"Button", byButton}, WayOut{"CloseBox", byBox},
                                         WayOut{"Escape", byEscape}, WayOut{"ControlW", byControlW}),
                         [](const auto &way) { return way.param.name; });

TEST_F(EditorClosing, AsksOnceHoweverOftenItIsWanted)
{
    edit();
    EXPECT_FALSE(widget().close());
    const QMessageBox &dialog = window.dialog();
    EXPECT_FALSE(widget().close());
    EXPECT_EQ(&window.dialog(), &dialog);
    press(Qt::Key_Escape);
    window.waitUntilUndisturbed();
    EXPECT_TRUE(isOpen());
}

TEST_F(EditorClosing, LeavesEveryFileAsItIs)
{
    openSongs({u"a.flac"_s});
    const QByteArray before = readFile(surroundings.songs().path(u"a.flac"_s));
    window.fillIn(u"Artist"_s, u"New"_s);
    press(Qt::Key_Escape);
    window.answer(u"Discard Changes"_s);
    expectGone();
    EXPECT_TRUE(readFile(surroundings.songs().path(u"a.flac"_s)) == before);
}

TEST_F(EditorClosing, StopsALoadWithoutAQuestion)
{
    surroundings.songs().makeSong(u"a.flac"_s);
    model.openFolder(surroundings.songs().url());
    press(Qt::Key_Escape);
    expectGone();
    EXPECT_TRUE(eventually([this] { return !model.isLoading.value(); }));
    EXPECT_TRUE(model.files.value().isEmpty());
}

TEST_F(EditorClosing, StopsASaveAfterAQuestion)
{
    openSongs({u"a.flac"_s, u"b.flac"_s});
    window.fillIn(u"Artist"_s, u"New"_s);
    tools.tell(u"hold"_s, u"a.flac"_s);
    press(Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(tools.waitUntilStarted(u"a.flac"_s));
    click(window.button(u"Cancel"_s));
    window.answer(u"Discard Changes"_s);
    expectGone();
    surroundings.waitForSave();
    EXPECT_EQ(surroundings.songs().tags(u"a.flac"_s).artist, u"a"_s);
    EXPECT_EQ(model.completionMessage.value(), std::nullopt);
    EXPECT_FALSE(model.alert.value());
    EXPECT_TRUE(model.files.value().isEmpty());
}

TEST_F(EditorClosing, LetsASaveGoOnThatEndsDuringTheQuestion)
{
    openSongs({u"a.flac"_s});
    window.fillIn(u"Artist"_s, u"New"_s);
    tools.tell(u"hold"_s, u"a.flac"_s);
    press(Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(tools.waitUntilStarted(u"a.flac"_s));
    widget().close();
    static_cast<void>(window.dialog());
    tools.tell(u"go"_s, u"a.flac"_s);
    surroundings.waitForSave();
    window.answer(u"Discard Changes"_s);
    expectGone();
    EXPECT_EQ(surroundings.songs().tags(u"a.flac"_s).artist, u"New"_s);
}

TEST_F(EditorClosing, TakesOtherQuestionsWithIt)
{
    openSongs({u"b.m4a"_s});
    addIdentifiers(surroundings.songs().path(u"b.m4a"_s));
    surroundings.open();
    window.fillIn(u"Artist"_s, u"New"_s);
    surroundings.save();
    EXPECT_EQ(window.dialog().text(), u"Save it without those tags?"_s);
    widget().close();
    ASSERT_EQ(window.dialogs().size(), 2);
    QMessageBox *last = window.dialogs().last();
    ASSERT_EQ(last->text(), u"Discard your changes?"_s);
    click(WindowUser::buttonIn(*last, u"Discard Changes"_s));
    expectGone();
    EXPECT_TRUE(model.refusedSaves.value().isEmpty());
    EXPECT_FALSE(model.isSaving.value());
    EXPECT_EQ(surroundings.songs().tags(u"b.m4a"_s).artist, u"b"_s);
}

TEST_F(EditorClosing, AsksNothingAnyMoreOnceTheFolderIsGone)
{
    show({filledRow(u"a.flac"_s)});
    PendingFolderChange change;
    change.url = surroundings.songs().url();
    model.pendingFolderChange = change;
    static_cast<void>(window.dialog());
    EXPECT_TRUE(widget().close());
    expectGone();
    EXPECT_FALSE(model.pendingFolderChange.value());
}

TEST_F(EditorClosing, LeavesAModelForTheNextWindow)
{
    edit();
    const QPointer<QWidget> first = &widget();
    press(Qt::Key_Escape);
    window.answer(u"Discard Changes"_s);
    expectGone();
    EXPECT_FALSE(first);
    // With nobody to look at them.
    show({filledRow(u"b.flac"_s)});
    model.setValue(u"Other"_s, Field::artist);
    ASSERT_EQ(model.commonValue(Field::artist), CommonValue::value(u"Other"_s));
    ASSERT_NO_FATAL_FAILURE(openAgain());
    EXPECT_EQ(model.selection.value().size(), 1);
    EXPECT_EQ(named<QLineEdit>(widget(), u"Artist"_s)->text(), u"Other"_s);
    EXPECT_TRUE(widget().findChildren<QMessageBox *>().isEmpty());
}

TEST_F(EditorClosing, LooksForTheToolsEachTimeThatItOpens)
{
    EXPECT_EQ(model.ffmpegProblem.value(), std::nullopt);
    ASSERT_TRUE(QFile::rename(tools.path(u"bin/ffmpeg"_s), tools.path(u"ffmpeg"_s)));
    press(Qt::Key_Escape);
    expectGone();
    EXPECT_EQ(model.ffmpegProblem.value(), std::nullopt);
    ASSERT_NO_FATAL_FAILURE(openAgain());
    ASSERT_TRUE(model.ffmpegProblem.value());
    EXPECT_TRUE(named<QLabel>(widget(), *model.ffmpegProblem.value()));
}

} // namespace tonearm
