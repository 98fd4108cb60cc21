// SPDX-License-Identifier: GPL-3.0-or-later
// The window's questions and alerts.
#include "e2e/ShownWindow.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "helpers/Rendering.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct QuestionsTest : ScriptedWindowTest
{
    // Loads a file, edits a title and drops another file.
    void askAboutSource()
    {
        surroundings.loadFile(tools.source());
        window.fillIn(u"Song title for chapter 1"_s, u"Eins"_s);
        EXPECT_TRUE(drop(window.find(u"Input file drop area"_s), {other}));
    }

    // Runs into a file that is there already.
    void askAboutOverwriting()
    {
        surroundings.prepareJob(tools.source());
        writeFile(surroundings.outputPath(u"02-Two.flac"_s), "before");
        click(window.button(u"Encode to FLAC"_s));
    }

    void expectQuestion(const QString &title, const QString &message, const QStringList &buttons)
    {
        const QMessageBox &dialog = window.dialog();
        EXPECT_EQ(dialog.text(), title);
        EXPECT_EQ(dialog.informativeText(), message);
        EXPECT_EQ(dialog.windowModality(), Qt::WindowModal);
        EXPECT_EQ(dialog.buttons().size(), buttons.size());
        for (const QString &text : buttons)
            EXPECT_TRUE(window.buttonIn(dialog, text).isVisible());
        QAbstractButton *safe = &window.buttonIn(dialog, buttons.last());
        EXPECT_EQ(dialog.defaultButton(), safe);
        EXPECT_EQ(dialog.escapeButton(), safe);
        EXPECT_EQ(QApplication::focusWidget(), safe);
    }

    // Goes to a button by keyboard and presses it.
    void answerByKeyboard(const QString &button)
    {
        const QMessageBox &dialog = window.dialog();
        for (int step = 0; step < 3 && QApplication::focusWidget() != &window.buttonIn(dialog, button);
             ++step)
            press(Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget(), &window.buttonIn(dialog, button));
        press(Qt::Key_Space);
    }

    QUrl other = QUrl::fromLocalFile(tools.path(u"Other.mkv"_s));
};

} // namespace

TEST_F(QuestionsTest, AskBeforeASourceIsReplaced)
{
    askAboutSource();
    expectQuestion(u"Replace the current setup?"_s,
                   u"Loading Other.mkv will discard 1 edited title. Nothing has been encoded yet."_s,
                   {u"Load Other.mkv"_s, u"Keep Current Setup"_s});
}

TEST_F(QuestionsTest, ReplaceTheSource)
{
    askAboutSource();
    window.answer(u"Load Other.mkv"_s);
    window.waitUntilUndisturbed();
    EXPECT_EQ(model.inputFileURL.value(), other);
    EXPECT_FALSE(model.pendingSourceChange.value());
}

TEST_F(QuestionsTest, KeepTheSource)
{
    askAboutSource();
    window.answer(u"Keep Current Setup"_s);
    window.waitUntilUndisturbed();
    EXPECT_EQ(model.inputFileURL.value(), QUrl::fromLocalFile(tools.source()));
    EXPECT_EQ(window.titleBox(1).text(), u"Eins"_s);
    EXPECT_FALSE(model.pendingSourceChange.value());
}

TEST_F(QuestionsTest, AskBeforeFilesAreOverwritten)
{
    askAboutOverwriting();
    expectQuestion(u"Replace 1 existing file?"_s,
                   u"\"out\" already contains the file:\n\n02-Two.flac\n\nEncoding will overwrite it."_s,
                   {u"Overwrite"_s, u"Cancel"_s});
}

TEST_F(QuestionsTest, OverwriteFiles)
{
    askAboutOverwriting();
    window.answer(u"Overwrite"_s);
    surroundings.waitForJobEnd();
    EXPECT_EQ(readFile(surroundings.outputPath(u"02-Two.flac"_s)), "sound\n");
}

TEST_F(QuestionsTest, LeaveFilesAlone)
{
    askAboutOverwriting();
    window.answer(u"Cancel"_s);
    window.waitUntilUndisturbed();
    surroundings.settle();
    EXPECT_FALSE(model.encodingTask.value());
    EXPECT_EQ(readFile(surroundings.outputPath(u"02-Two.flac"_s)), "before");
    EXPECT_TRUE(window.button(u"Encode to FLAC"_s).isEnabled());
}

TEST_F(QuestionsTest, TellWhatWentWrong)
{
    tools.setEncoding("echo It broke >&2; exit 3");
    surroundings.prepareJob(tools.source());
    click(window.button(u"Encode to FLAC"_s));
    surroundings.waitForJobEnd();
    const AlertContent alert = model.alert.value().value();
    EXPECT_EQ(alert.title, u"Encoding Failed"_s);
    expectQuestion(alert.title, alert.message, {u"OK"_s});
    window.answer(u"OK"_s);
    window.waitUntilUndisturbed();
    EXPECT_FALSE(model.alert.value());
}

TEST_F(QuestionsTest, CanBeAnsweredByKeyboard)
{
    askAboutSource();
    answerByKeyboard(u"Load Other.mkv"_s);
    window.waitUntilUndisturbed();
    EXPECT_EQ(model.inputFileURL.value(), other);
}

TEST_F(QuestionsTest, AreDeclinedByReturn)
{
    askAboutSource();
    static_cast<void>(window.dialog());
    press(Qt::Key_Return);
    window.waitUntilUndisturbed();
    EXPECT_EQ(model.inputFileURL.value(), QUrl::fromLocalFile(tools.source()));
    EXPECT_FALSE(model.pendingSourceChange.value());
}

TEST_F(QuestionsTest, AreDeclinedByEscape)
{
    askAboutOverwriting();
    static_cast<void>(window.dialog());
    press(Qt::Key_Escape);
    window.waitUntilUndisturbed();
    EXPECT_FALSE(model.pendingOverwrite.value());
    surroundings.settle();
    EXPECT_FALSE(model.encodingTask.value());
}

TEST_F(QuestionsTest, AreDeclinedWhenTheirDialogIsClosed)
{
    askAboutOverwriting();
    window.dialog().close();
    window.waitUntilUndisturbed();
    EXPECT_FALSE(model.pendingOverwrite.value());
    surroundings.settle();
    EXPECT_FALSE(model.encodingTask.value());
}

TEST_F(QuestionsTest, AlertsGoByEscape)
{
    model.alert = AlertContent(u"Title"_s, u"Message"_s);
    static_cast<void>(window.dialog());
    press(Qt::Key_Escape);
    window.waitUntilUndisturbed();
    EXPECT_FALSE(model.alert.value());
}

TEST_F(QuestionsTest, GiveWayToTheirSuccessors)
{
    askAboutSource();
    static_cast<void>(window.dialog());
    model.requestFile(QUrl(u"file:///music/Third.mkv"_s));
    ASSERT_TRUE(eventually([this] { return window.dialogs().size() == 1; }));
    EXPECT_TRUE(window.dialog().informativeText().startsWith(u"Loading Third.mkv "_s));
    window.answer(u"Load Third.mkv"_s);
    EXPECT_EQ(model.inputFileURL.value(), QUrl(u"file:///music/Third.mkv"_s));
}

TEST_F(QuestionsTest, CloseWhenNothingIsAskedAnyMore)
{
    askAboutSource();
    static_cast<void>(window.dialog());
    model.pendingSourceChange = std::nullopt;
    window.waitUntilUndisturbed();
    EXPECT_EQ(model.inputFileURL.value(), QUrl::fromLocalFile(tools.source()));
}

TEST_F(QuestionsTest, FollowOneAnother)
{
    tools.setProbe("exit 1");
    surroundings.loadFile(tools.source());
    EXPECT_EQ(window.dialog().text(), u"Couldn't Read Chapters"_s);
    window.answer(u"OK"_s);
    window.waitUntilUndisturbed();
    EXPECT_FALSE(drop(window.find(u"Input file drop area"_s), {QUrl(u"file:///a.mp3"_s)}));
    EXPECT_EQ(window.dialog().text(), u"Unsupported File"_s);
    window.answer(u"OK"_s);
    window.waitUntilUndisturbed();
    EXPECT_FALSE(drop(window.find(u"Input file drop area"_s), {QUrl(u"file:///a.mp3"_s)}));
    EXPECT_EQ(window.dialog().text(), u"Unsupported File"_s);
}

TEST_F(QuestionsTest, StandWhileAnAlertComesAndGoes)
{
    ASSERT_NO_FATAL_FAILURE(startHeldJob());
    window.window().close();
    QMessageBox *question = &window.dialog();
    EXPECT_EQ(question->text(), u"Stop encoding?"_s);
    model.alert = AlertContent(u"Title"_s, u"Message"_s);
    ASSERT_EQ(window.dialogs().size(), 2);
    QMessageBox *alert = window.dialogs().last();
    ASSERT_TRUE(QTest::qWaitForWindowActive(alert));
    click(window.buttonIn(*alert, u"OK"_s));
    EXPECT_EQ(&window.dialog(), question);
    window.answer(u"Keep Encoding"_s);
    window.waitUntilUndisturbed();
    EXPECT_TRUE(model.encodingTask.value());
}

TEST_F(QuestionsTest, ShowNamesAsTheyAre)
{
    other = QUrl::fromLocalFile(u"/music/<b>Rock & Roll.mkv"_s);
    askAboutSource();
    const QMessageBox &dialog = window.dialog();
    EXPECT_EQ(window.buttonIn(dialog, u"Load <b>Rock & Roll.mkv"_s).text(), u"Load <b>Rock && Roll.mkv"_s);
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
}

TEST_F(QuestionsTest, StayNarrowWhateverTheName)
{
    other = QUrl::fromLocalFile(u"/music/"_s + QString(240, u'x') + u".mkv"_s);
    askAboutSource();
    EXPECT_LT(window.dialog().width(), window.window().width());
    EXPECT_NE(renderToPng(window.dialog(), u"question-long-name"_s), QString());
    window.answer(u"Load "_s + other.fileName());
    EXPECT_EQ(model.inputFileURL.value(), other);
}

TEST_F(QuestionsTest, GiveTheFocusBack)
{
    surroundings.prepareJob(tools.source());
    click(window.box(u"Artist"_s));
    model.alert = AlertContent(u"Title"_s, u"Message"_s);
    window.answer(u"OK"_s);
    window.waitUntilUndisturbed();
    EXPECT_EQ(QApplication::focusWidget(), &window.box(u"Artist"_s));
}

} // namespace tonearm
