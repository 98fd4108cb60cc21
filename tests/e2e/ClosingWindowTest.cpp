// SPDX-License-Identifier: GPL-3.0-or-later
// Closing the window, with and without a job.
#include "e2e/ShownWindow.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"

#include <QCloseEvent>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct ClosingWindowTest : ScriptedWindowTest
{
    bool isOpen() { return window.window().isVisible(); }

    // Starts a job that has left part of a file, and asks for the window to be closed.
    void closeDuringJob()
    {
        tools.setEncoding("echo part > \"$output\"; touch \"$here/wrote\"; " + ScriptedTools::waiting("go"));
        surroundings.prepareJob(tools.source());
        click(window.button(u"Encode to FLAC"_s));
        ASSERT_TRUE(tools.waitFor(u"wrote"_s));
        press(Qt::Key_W, Qt::ControlModifier);
    }

    // The text of the one log in the output folder.
    QString log()
    {
        const QStringList names = namesIn(surroundings.outputPath()).filter(u".log"_s);
        EXPECT_EQ(names.size(), 1);
        return QString::fromUtf8(readFile(surroundings.outputPath(names.value(0))));
    }
};

} // namespace

TEST_F(ClosingWindowTest, NeedsNoQuestionWithoutAJob)
{
    surroundings.prepareJob(tools.source());
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(isOpen());
}

TEST_F(ClosingWindowTest, LeavesOtherWindowsOpen)
{
    QWidget other;
    other.show();
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(other.isVisible());
}

TEST_F(ClosingWindowTest, EndsTheProgramWithAllItsWindows)
{
    QWidget other;
    other.show();
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(other.isVisible());
}

TEST_F(ClosingWindowTest, EndsTheProgramFromAnotherWindowToo)
{
    QWidget other;
    ASSERT_TRUE(showActive(other));
    QTest::keyClick(&other, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(other.isVisible());
    EXPECT_FALSE(isOpen());
}

TEST_F(ClosingWindowTest, StaysWithAWindowThatWontClose)
{
    struct Unwilling : QWidget
    {
        void closeEvent(QCloseEvent *event) override { event->ignore(); }
    };

    Unwilling other;
    other.show();
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(other.isVisible());
}

TEST_F(ClosingWindowTest, AsksBeforeTheProgramEndsDuringAJob)
{
    startHeldJob();
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(isOpen());
    window.answer(u"Stop and Close"_s);
    EXPECT_TRUE(eventually([this] { return !isOpen(); }));
}

TEST_F(ClosingWindowTest, AsksWhileAJobRuns)
{
    ASSERT_NO_FATAL_FAILURE(closeDuringJob());
    const QMessageBox &dialog = window.dialog();
    EXPECT_EQ(dialog.text(), u"Stop encoding?"_s);
    EXPECT_EQ(dialog.informativeText(), u"Closing the window stops the job that is running. Tracks already "
                                        u"finished stay where they are."_s);
    EXPECT_EQ(dialog.defaultButton(), &window.buttonIn(dialog, u"Keep Encoding"_s));
    EXPECT_EQ(dialog.escapeButton(), &window.buttonIn(dialog, u"Keep Encoding"_s));
    EXPECT_TRUE(isOpen());
    EXPECT_FALSE(window.window().close());
    EXPECT_EQ(&window.dialog(), &dialog);
}

TEST_F(ClosingWindowTest, LetsTheJobGoOn)
{
    ASSERT_NO_FATAL_FAILURE(closeDuringJob());
    window.answer(u"Keep Encoding"_s);
    window.waitUntilUndisturbed();
    tools.release(u"go"_s);
    surroundings.waitForJobEnd();
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(model.completion.value());
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(isOpen());
}

TEST_F(ClosingWindowTest, StopsTheJobFirst)
{
    ASSERT_NO_FATAL_FAILURE(closeDuringJob());
    window.answer(u"Stop and Close"_s);
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(eventually([this] { return !isOpen(); }));
    EXPECT_FALSE(model.encodingTask.value());
    EXPECT_EQ(namesIn(surroundings.outputPath()).filter(u".flac"_s), QStringList());
    EXPECT_EQ(namesIn(surroundings.outputPath()).size(), 1);
    EXPECT_TRUE(log().contains(u"cancelled"_s, Qt::CaseInsensitive)) << log().toStdString();
}

TEST_F(ClosingWindowTest, KeepsTheTracksThatAreFinished)
{
    tools.setEncoding(R"(echo sound > "$output"; if [ "$track" = 2 ]; then touch "$here/wrote"; )" +
                      ScriptedTools::waiting("go") + "fi");
    surroundings.prepareJob(tools.source());
    click(window.button(u"Encode to FLAC"_s));
    ASSERT_TRUE(tools.waitFor(u"wrote"_s));
    window.window().close();
    window.answer(u"Stop and Close"_s);
    EXPECT_TRUE(eventually([this] { return !isOpen(); }));
    EXPECT_EQ(namesIn(surroundings.outputPath()).filter(u".flac"_s), QStringList{u"01-One.flac"_s});
}

TEST_F(ClosingWindowTest, ClosesAtOnceWhenTheJobEndedDuringTheQuestion)
{
    ASSERT_NO_FATAL_FAILURE(closeDuringJob());
    static_cast<void>(window.dialog());
    tools.release(u"go"_s);
    surroundings.waitForJobEnd();
    window.answer(u"Stop and Close"_s);
    EXPECT_TRUE(eventually([this] { return !isOpen(); }));
    EXPECT_TRUE(model.completion.value());
}

} // namespace tonearm
