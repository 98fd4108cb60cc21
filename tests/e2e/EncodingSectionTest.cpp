// SPDX-License-Identifier: GPL-3.0-or-later
// Section 4: the job, its buttons and what is said of it.
#include "e2e/ShownWindow.h"

#include "app/screens/elements/IconView.h"
#include "app/screens/elements/Spinner.h"
#include "app/screens/mainwindow/StatusLine.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"

#include <QAccessible>
#include <QLabel>
#include <QProgressBar>

#include <functional>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Kind = WorkflowState::Kind;

namespace {

struct EncodingSectionTest : ScriptedWindowTest
{
    QPushButton &encode() { return window.button(u"Encode to FLAC"_s); }

    StatusLine &statusLine() { return *window.window().findChild<StatusLine *>(); }

    IconView &sign() { return *statusLine().findChild<IconView *>(); }

    Spinner &spinner() { return *statusLine().findChild<Spinner *>(); }
};

} // namespace

TEST_F(EncodingSectionTest, ExplainsTheFirstThingThatIsMissing)
{
    const QList<std::pair<QString, std::function<void()>>> steps = {
        {u"Install ffmpeg to enable encoding."_s, [&] { surroundings.findTools(); }},
        {u"Choose an .mkv file to begin."_s, [&] { model.inputFileURL = QUrl(u"file:///a.mkv"_s); }},
        {u"This file has no chapters to encode."_s,
         [&] {
             model.chapters = chaptersTitled({u" "_s, QString(), u"\t\n"_s, u"Four"_s});
         }},
        {u"Choose an output folder."_s, [&] { model.outputFolderURL = QUrl(u"file:///music"_s); }},
        {u"3 chapters still need song titles."_s,
         [&] { window.fillIn(u"Song title for chapter 1"_s, u"One"_s); }},
        {u"2 chapters still need song titles."_s,
         [&] { window.fillIn(u"Song title for chapter 2"_s, u"Two"_s); }},
        {u"One chapter still needs a song title."_s,
         [&] { window.fillIn(u"Song title for chapter 3"_s, u"Three"_s); }}};
    for (const auto &[hint, next] : steps) {
        EXPECT_TRUE(window.shows<QLabel>(hint)) << hint.toStdString();
        EXPECT_FALSE(encode().isEnabled()) << hint.toStdString();
        next();
        EXPECT_FALSE(window.shows<QLabel>(hint)) << hint.toStdString();
    }
    EXPECT_TRUE(encode().isEnabled());
}

TEST_F(EncodingSectionTest, HasOnlyTheEncodeButtonWithoutASource)
{
    EXPECT_TRUE(window.shows<QLabel>(u"Encode"_s));
    EXPECT_FALSE(encode().isEnabled());
    EXPECT_FALSE(encode().icon().isNull());
    EXPECT_FALSE(window.shows(u"Cancel"_s));
    EXPECT_FALSE(window.shows(u"Show in Finder"_s));
    EXPECT_FALSE(window.shows(u"Clear"_s));
    EXPECT_FALSE(window.shows(u"Encoding progress"_s));
    EXPECT_FALSE(statusLine().isVisible());
}

TEST_F(EncodingSectionTest, OffersMoreWithASource)
{
    surroundings.prepareJob(tools.source());
    EXPECT_FALSE(window.shows(u"Cancel"_s));
    EXPECT_FALSE(window.button(u"Show in Finder"_s).isEnabled());
    EXPECT_EQ(window.button(u"Show in Finder"_s).toolTip(), u"Available once the encode has finished"_s);
    EXPECT_TRUE(window.button(u"Clear"_s).isEnabled());
    EXPECT_EQ(window.button(u"Clear"_s).toolTip(), u"Clear the inputs, ready for the next job"_s);
}

TEST_F(EncodingSectionTest, HasItsButtonsInOrder)
{
    ASSERT_NO_FATAL_FAILURE(startHeldJob());
    ShownWindow::settle();
    int before = -1;
    for (const QString &name : {u"Encode to FLAC"_s, u"Cancel"_s, u"Show in Finder"_s, u"Clear"_s}) {
        EXPECT_GT(window.button(name).x(), before) << name.toStdString();
        before = window.button(name).geometry().right();
    }
}

TEST_F(EncodingSectionTest, ShowsAJobThatRuns)
{
    ASSERT_NO_FATAL_FAILURE(startHeldJob());
    EXPECT_FALSE(encode().isEnabled());
    EXPECT_TRUE(window.button(u"Cancel"_s).isEnabled());
    EXPECT_FALSE(window.button(u"Show in Finder"_s).isEnabled());
    EXPECT_FALSE(window.button(u"Clear"_s).isEnabled());
    EXPECT_TRUE(window.shows<QLabel>(u"Encoding 1 of 2: One"_s));
    EXPECT_TRUE(spinner().isTurning());
    EXPECT_FALSE(sign().isVisible());
    model.setMappedTitle(0, QString());
    EXPECT_FALSE(window.shows(u"One chapter still needs a song title."_s));
}

TEST_F(EncodingSectionTest, MovesTheBarAsTheJobGoesOn)
{
    tools.setEncoding(R"(if [ "$track" = 2 ]; then touch "$here/second"; )" + ScriptedTools::waiting("go") +
                      R"(fi; echo sound > "$output")");
    surroundings.prepareJob(tools.source());
    click(encode());
    ASSERT_TRUE(tools.waitFor(u"second"_s));
    auto &bar = window.find<QProgressBar>(u"Encoding progress"_s);
    EXPECT_EQ(bar.value() * 2, bar.maximum());
    EXPECT_TRUE(window.shows<QLabel>(u"Encoding 2 of 2: Two"_s));
    tools.release(u"go"_s);
    surroundings.waitForJobEnd();
    EXPECT_FALSE(window.shows(u"Encoding progress"_s));
}

TEST_F(EncodingSectionTest, SumsAFinishedJobUp)
{
    surroundings.prepareJob(tools.source());
    click(encode());
    surroundings.waitForJobEnd();
    EXPECT_TRUE(window.shows<QLabel>(u"Encoded 2 tracks to out"_s));
    EXPECT_TRUE(window.shows<QLabel>(u"Encoded 2 tracks to out."_s));
    EXPECT_EQ(sign().iconName(), IconName::success);
    EXPECT_TRUE(sign().isVisible());
    EXPECT_FALSE(spinner().isVisible());
    EXPECT_TRUE(encode().isEnabled());
    EXPECT_FALSE(window.shows(u"Cancel"_s));
    EXPECT_TRUE(window.button(u"Clear"_s).isEnabled());
}

TEST_F(EncodingSectionTest, SumsOneTrackUpInTheSingular)
{
    writeFile(tools.path(u"reply.json"_s), ScriptedTools::replyFor({{0, 1, u"Solo"_s}}));
    surroundings.prepareJob(tools.source());
    click(encode());
    surroundings.waitForJobEnd();
    EXPECT_TRUE(window.shows<QLabel>(u"Encoded 1 track to out"_s));
}

TEST_F(EncodingSectionTest, ShowsTheFilesOfAFinishedJob)
{
    surroundings.prepareJob(tools.source());
    click(encode());
    surroundings.waitForJobEnd();
    QPushButton &show = window.button(u"Show in Finder"_s);
    EXPECT_TRUE(show.isEnabled());
    EXPECT_EQ(show.toolTip(), u"Open the folder the tracks were written to"_s);
    click(show);
    EXPECT_EQ(surroundings.fileViewer().selections(), QList<QList<QUrl>>({model.encodedFiles.value()}));
}

TEST_F(EncodingSectionTest, ClearsTheWindowForTheNextJob)
{
    surroundings.prepareJob(tools.source());
    window.fillIn(u"Artist"_s, u"The Artist"_s);
    click(encode());
    surroundings.waitForJobEnd();
    click(window.button(u"Clear"_s));
    EXPECT_EQ(window.box(u"Artist"_s).text(), QString());
    EXPECT_EQ(window.box(u"Input File:"_s).text(), u"Not selected"_s);
    EXPECT_EQ(window.box(u"Output Folder:"_s).text(), surroundings.outputPath());
    EXPECT_FALSE(window.shows(u"Song title for chapter 1"_s));
    EXPECT_FALSE(window.shows(u"Encoded 2 tracks to out"_s));
    EXPECT_FALSE(statusLine().isVisible());
    EXPECT_TRUE(window.shows<QLabel>(u"Choose an .mkv file to begin."_s));
}

TEST_F(EncodingSectionTest, GoesBackToTheStartWhenAJobIsCancelled)
{
    ASSERT_NO_FATAL_FAILURE(startHeldJob());
    click(window.button(u"Cancel"_s));
    surroundings.waitForJobEnd();
    EXPECT_TRUE(encode().isEnabled());
    EXPECT_FALSE(window.shows(u"Cancel"_s));
    EXPECT_FALSE(window.button(u"Show in Finder"_s).isEnabled());
    EXPECT_FALSE(statusLine().isVisible());
}

TEST_F(EncodingSectionTest, MarksEachStateWithItsSign)
{
    for (const Kind kind : {Kind::extractingChapters, Kind::awaitingUserMapping, Kind::encoding}) {
        model.currentState = kind;
        EXPECT_TRUE(statusLine().isVisible());
        EXPECT_TRUE(spinner().isTurning());
        EXPECT_FALSE(sign().isVisible());
    }
    model.currentState = Kind::complete;
    EXPECT_EQ(sign().iconName(), IconName::success);
    EXPECT_FALSE(spinner().isVisible());
    model.currentState = WorkflowState::error(u"It <b>broke</b>."_s);
    EXPECT_EQ(sign().iconName(), IconName::warning);
    EXPECT_TRUE(sign().isVisible());
    EXPECT_FALSE(spinner().isVisible());
    model.currentState = Kind::idle;
    EXPECT_FALSE(statusLine().isVisible());
}

TEST_F(EncodingSectionTest, ShowsAnErrorAsItStands)
{
    model.currentState = WorkflowState::error(u"It <b>broke</b>."_s);
    auto &text = window.find<QLabel>(u"It <b>broke</b>."_s);
    EXPECT_EQ(text.textFormat(), Qt::PlainText);
    EXPECT_TRUE(text.textInteractionFlags() & Qt::TextSelectableByMouse);
}

TEST_F(EncodingSectionTest, IsReadOutAsItGoes)
{
    model.currentState = WorkflowState::error(u"It broke."_s);
    QAccessibleInterface *text = QAccessible::queryAccessibleInterface(&window.find<QLabel>(u"It broke."_s));
    EXPECT_EQ(text->role(), QAccessible::Notification);
    model.currentState = WorkflowState::error(u"It broke again."_s);
    EXPECT_EQ(text->text(QAccessible::Name), u"It broke again."_s);
}

} // namespace tonearm
