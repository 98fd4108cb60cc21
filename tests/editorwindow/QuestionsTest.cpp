// SPDX-License-Identifier: GPL-3.0-or-later
// The questions and alerts.
#include "editorwindow/EditorWindowTest.h"

#include <QApplication>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Field = EditableTagField;

namespace {

struct EditorQuestionsTest : EditorWindowTest
{
    void expectQuestion(const QString &title, const QString &message, const QString &accept,
                        const QString &decline)
    {
        const QMessageBox &dialog = window.dialog();
        EXPECT_EQ(dialog.text(), title);
        EXPECT_EQ(dialog.informativeText(), message);
        EXPECT_EQ(dialog.windowModality(), Qt::WindowModal);
        ASSERT_EQ(dialog.buttons().size(), 2);
        QAbstractButton *safe = &WindowUser::buttonIn(dialog, decline);
        EXPECT_EQ(dialog.buttonRole(&WindowUser::buttonIn(dialog, accept)), QMessageBox::DestructiveRole);
        EXPECT_EQ(dialog.buttonRole(safe), QMessageBox::RejectRole);
        EXPECT_EQ(dialog.defaultButton(), safe);
        EXPECT_EQ(dialog.escapeButton(), safe);
        EXPECT_EQ(QApplication::focusWidget(), safe);
    }

    // Edits a folder of one song and chooses the folder of others.
    void askAboutFolder()
    {
        openSongs({u"a.flac"_s});
        model.setValue(u"New"_s, Field::artist);
        surroundings.panels().prepareAnswer(surroundings.url(u"R&B <live>"_s));
        click(window.button(u"Choose Folder…"_s));
    }

    // Edits a FLAC file and M4A files that can't keep their tags, and saves them.
    void askAboutRefusedFiles(const QStringList &names)
    {
        openSongs(names);
        for (const QString &name : names)
            if (name.endsWith(u".m4a"_s))
                addIdentifiers(surroundings.songs().path(name));
        surroundings.open();
        window.fillIn(u"Artist"_s, u"New"_s);
        surroundings.save();
    }

    QString artistOf(const QString &name) { return surroundings.songs().tags(name).artist; }
};

} // namespace

TEST_F(EditorQuestionsTest, AskBeforeEditsGoWithTheirFolder)
{
    askAboutFolder();
    expectQuestion(u"Load a different folder?"_s,
                   u"Loading R&B <live> will discard the changes you've made. Nothing has been written to "
                   u"disk yet."_s,
                   u"Load R&B <live>"_s, u"Keep Editing"_s);
}

TEST_F(EditorQuestionsTest, LoadTheOtherFolder)
{
    askAboutFolder();
    window.answer(u"Load R&B <live>"_s);
    EXPECT_EQ(model.folderURL.value(), surroundings.url(u"R&B <live>"_s));
    EXPECT_FALSE(model.hasPendingChanges());
    // There is none.
    EXPECT_EQ(window.dialog().text(), u"Couldn't Read That Folder"_s);
    window.answer(u"OK"_s);
    window.waitUntilUndisturbed();
    EXPECT_FALSE(model.alert.value());
}

TEST_F(EditorQuestionsTest, KeepTheFolderAndItsEdits)
{
    askAboutFolder();
    window.answer(u"Keep Editing"_s);
    window.waitUntilUndisturbed();
    EXPECT_FALSE(model.pendingFolderChange.value());
    EXPECT_EQ(model.folderURL.value(), surroundings.songs().url());
    EXPECT_TRUE(model.hasPendingChanges());
}

TEST_F(EditorQuestionsTest, KeepTheFolderOnEscape)
{
    askAboutFolder();
    static_cast<void>(window.dialog());
    press(Qt::Key_Escape);
    window.waitUntilUndisturbed();
    EXPECT_FALSE(model.pendingFolderChange.value());
    EXPECT_TRUE(model.hasPendingChanges());
    EXPECT_TRUE(isOpen());
}

TEST_F(EditorQuestionsTest, AskBeforeOneFileLosesTags)
{
    askAboutRefusedFiles({u"a.flac"_s, u"b.m4a"_s});
    EXPECT_TRUE(model.refusalMessage().startsWith(u"\"b.m4a\" carries tags this app"_s));
    expectQuestion(u"Save it without those tags?"_s, model.refusalMessage(), u"Save Anyway"_s,
                   u"Leave Unchanged"_s);
}

TEST_F(EditorQuestionsTest, AskBeforeMoreFilesLoseTags)
{
    askAboutRefusedFiles({u"b.m4a"_s, u"c.m4a"_s});
    EXPECT_TRUE(model.refusalMessage().startsWith(u"2 files carry tags this app"_s));
    expectQuestion(u"Save them without those tags?"_s, model.refusalMessage(), u"Save Anyway"_s,
                   u"Leave Unchanged"_s);
}

TEST_F(EditorQuestionsTest, SaveRefusedFilesAnyway)
{
    askAboutRefusedFiles({u"a.flac"_s, u"b.m4a"_s});
    window.answer(u"Save Anyway"_s);
    surroundings.waitForSave();
    window.waitUntilUndisturbed();
    EXPECT_TRUE(window.shows(u"Saved 2 files · dropped unwritable tags from 1."_s));
    EXPECT_TRUE(window.shows(u"30 tags dropped from 1 file that couldn't keep them."_s));
    EXPECT_EQ(artistOf(u"a.flac"_s), u"New"_s);
    EXPECT_EQ(artistOf(u"b.m4a"_s), u"New"_s);
}

TEST_F(EditorQuestionsTest, LeaveRefusedFilesUnchanged)
{
    askAboutRefusedFiles({u"a.flac"_s, u"b.m4a"_s});
    window.answer(u"Leave Unchanged"_s);
    surroundings.waitForSave();
    EXPECT_TRUE(window.shows(u"Saved 1 file · 1 held back."_s));
    EXPECT_EQ(artistOf(u"a.flac"_s), u"New"_s);
    EXPECT_EQ(artistOf(u"b.m4a"_s), u"b"_s);
}

TEST_F(EditorQuestionsTest, LeaveRefusedFilesUnchangedOnEscape)
{
    askAboutRefusedFiles({u"a.flac"_s, u"b.m4a"_s});
    static_cast<void>(window.dialog());
    press(Qt::Key_Escape);
    EXPECT_TRUE(model.isSaving.value());
    surroundings.waitForSave();
    EXPECT_TRUE(window.shows(u"Saved 1 file · 1 held back."_s));
}

TEST_F(EditorQuestionsTest, LeaveRefusedFilesUnchangedWhenTheDialogIsClosed)
{
    askAboutRefusedFiles({u"b.m4a"_s});
    window.dialog().close();
    window.waitUntilUndisturbed();
    EXPECT_TRUE(model.refusedSaves.value().isEmpty());
    EXPECT_FALSE(model.isSaving.value());
    EXPECT_EQ(model.completionMessage.value(), std::nullopt);
    EXPECT_TRUE(window.shows(u"1 file will be written."_s));
    EXPECT_EQ(artistOf(u"b.m4a"_s), u"b"_s);
}

TEST_F(EditorQuestionsTest, TellWhatCouldntBeSaved)
{
    openSongs({u"a.flac"_s});
    model.setValue(u"New"_s, Field::artist);
    tools.tell(u"fail"_s, u"a.flac"_s);
    surroundings.save();
    const QMessageBox &dialog = window.dialog();
    EXPECT_EQ(dialog.text(), u"One File Couldn't Be Saved"_s);
    EXPECT_EQ(dialog.informativeText(), u"a.flac — "_s + model.saveFailures.value().first().reason);
    EXPECT_EQ(dialog.buttons().size(), 1);
    window.answer(u"OK"_s);
    window.waitUntilUndisturbed();
    EXPECT_FALSE(model.alert.value());
    EXPECT_TRUE(window.shows(u"No files were saved · 1 held back · 1 couldn't be written."_s));
    EXPECT_TRUE(window.button(u"Save"_s).isEnabled());
}

TEST_F(EditorQuestionsTest, StayOnTheScreenHoweverMuchThereIsToTell)
{
    QStringList lines;
    for (int number = 0; number < 500; ++number)
        lines.append(u"%1.flac — couldn't be written."_s.arg(number));
    model.alert = AlertContent(u"Some Files Couldn't Be Saved"_s, lines.join(u'\n'));
    EXPECT_LT(window.dialog().height(), 500);
    EXPECT_EQ(window.dialog().informativeText(), lines.join(u'\n'));
    press(Qt::Key_Return);
    window.waitUntilUndisturbed();
    EXPECT_FALSE(model.alert.value());
}

} // namespace tonearm
