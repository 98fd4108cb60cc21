// SPDX-License-Identifier: GPL-3.0-or-later
// A job that the user stops: before its first step, in the middle, in the last instant.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"
#include "helpers/Sources.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ScriptedTools;
using Kind = WorkflowState::Kind;

namespace {

// Leaves a part of the output and stays until it is stopped.
constexpr auto standStill = R"(
echo part > "$output"; echo $$ > "$here/pid"; touch "$here/still"; exec sleep 600
)";

class CancelledJob : public testing::Test
{
protected:
    void SetUp() override { m_fixture.prepareJob(m_tools.source()); }

    // Runs the script for one track; the others come out at once.
    void setEncodingOf(int track, const QByteArray &body)
    {
        m_tools.setEncoding("if [ \"$track\" = " + QByteArray::number(track) + " ]; then\n" + body +
                            "\nfi\necho sound > \"$output\"");
    }

    void startAndWaitFor(const QString &name)
    {
        m_model.startEncoding();
        ASSERT_TRUE(m_tools.waitFor(name));
    }

    void cancelAndWait()
    {
        m_model.cancelEncoding();
        EXPECT_TRUE(m_model.encodingTask.value());
        m_fixture.waitForJobEnd();
    }

    // The state after a cancellation, with these files in the folder beside the log.
    void expectCancelled(const QStringList &files)
    {
        EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::idle));
        EXPECT_EQ(m_model.statusText(), u"Encoding cancelled."_s);
        EXPECT_EQ(m_model.encodingProgress.value(), 0.0);
        EXPECT_TRUE(m_model.encodedFiles.value().isEmpty());
        EXPECT_FALSE(m_model.completion.value());
        EXPECT_FALSE(m_model.lastOutputFolder.value());
        EXPECT_FALSE(m_model.alert.value());
        EXPECT_FALSE(m_model.canRevealOutput());
        EXPECT_EQ(test::namesIn(m_fixture.outputPath()),
                  files + QStringList{m_model.lastLogURL.value().value().fileName()});
        const QString log =
            QString::fromUtf8(test::readFile(m_model.lastLogURL.value().value().toLocalFile()));
        EXPECT_TRUE(log.contains(u"Files written  %1 of 4\n"_s.arg(files.size()))) << log.toStdString();
        EXPECT_TRUE(log.contains(u"Outcome        cancelled by the user\n"_s)) << log.toStdString();
        EXPECT_FALSE(log.contains(u"Reason"_s));
    }

    ScriptedTools m_tools{{{0, 1, u"A"_s}, {1, 2, u"B"_s}, {2, 3, u"C"_s}, {3, 4, u"D"_s}}};
    ModelFixture m_fixture{{.tools = m_tools.location()}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(CancelledJob, StopsBeforeItsFirstStep)
{
    QStringList messages;
    const auto onStart = m_model.encodingTask.onValueChanged([this] { m_model.cancelEncoding(); });
    const auto onMessage =
        m_model.progressMessage.onValueChanged([&] { messages.append(m_model.progressMessage.value()); });
    m_fixture.runJob();
    expectCancelled({});
    EXPECT_FALSE(m_tools.hasStarted(1));
    EXPECT_EQ(messages, (QStringList{u"Starting…"_s, u"Encoding cancelled."_s}));
}

TEST_F(CancelledJob, StopsInItsFirstTrack)
{
    setEncodingOf(1, standStill);
    ASSERT_NO_FATAL_FAILURE(startAndWaitFor(u"still"_s));
    cancelAndWait();
    expectCancelled({});
    EXPECT_FALSE(m_tools.isRunning());
    EXPECT_FALSE(m_tools.hasStarted(2));
}

TEST_F(CancelledJob, StopsInTheMiddleAndKeepsWhatIsFinished)
{
    setEncodingOf(2, standStill);
    ASSERT_NO_FATAL_FAILURE(startAndWaitFor(u"still"_s));
    cancelAndWait();
    expectCancelled({u"01-A.flac"_s});
    EXPECT_FALSE(m_tools.isRunning());
    EXPECT_FALSE(m_tools.hasStarted(3));
}

TEST_F(CancelledJob, CountsAsCancelledEvenIfFfmpegStillSucceeds)
{
    setEncodingOf(4, R"(trap 'echo whole > "$output"; exit 0' TERM
                        touch "$here/still"; while :; do sleep 0.01; done)");
    ASSERT_NO_FATAL_FAILURE(startAndWaitFor(u"still"_s));
    cancelAndWait();
    expectCancelled({u"01-A.flac"_s, u"02-B.flac"_s, u"03-C.flac"_s});
}

TEST_F(CancelledJob, CountsAsCancelledEvenIfFfmpegFailsMeanwhile)
{
    setEncodingOf(3, R"(trap 'echo "no good" >&2; exit 3' TERM
                        echo part > "$output"; touch "$here/still"; while :; do sleep 0.01; done)");
    ASSERT_NO_FATAL_FAILURE(startAndWaitFor(u"still"_s));
    cancelAndWait();
    expectCancelled({u"01-A.flac"_s, u"02-B.flac"_s});
}

TEST_F(CancelledJob, StopsBetweenTwoTracks)
{
    const auto onProgress = m_model.encodingProgress.onValueChanged([this] {
        if (m_model.encodingProgress.value() == 0.5)
            m_model.cancelEncoding();
    });
    m_fixture.runJob();
    expectCancelled({u"01-A.flac"_s, u"02-B.flac"_s});
}

TEST_F(CancelledJob, IsFinishedAllTheSameOnceItsLastTrackIsDone)
{
    // The job tells of the whole before it writes its log.
    bool wasRunning = false;
    const auto onProgress = m_model.encodingProgress.onValueChanged([&] {
        if (m_model.encodingProgress.value() == 1.0 && m_model.encodingTask.value()) {
            wasRunning = true;
            m_model.cancelEncoding();
        }
    });
    m_fixture.runJob();
    EXPECT_TRUE(wasRunning);
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::complete));
    EXPECT_EQ(m_model.completion.value().value().fileCount, 4);
}

TEST_F(CancelledJob, TakesASecondRequestToStopCalmly)
{
    setEncodingOf(2, standStill);
    ASSERT_NO_FATAL_FAILURE(startAndWaitFor(u"still"_s));
    m_model.cancelEncoding();
    cancelAndWait();
    expectCancelled({u"01-A.flac"_s});
    m_model.cancelEncoding();
    EXPECT_EQ(m_model.statusText(), u"Encoding cancelled."_s);
}

TEST_F(CancelledJob, RemovesAFileThatItHadBegunToReplace)
{
    test::writeFile(m_fixture.outputPath(u"02-B.flac"_s), "older");
    test::writeFile(m_fixture.outputPath(u"03-C.flac"_s), "older");
    setEncodingOf(2, standStill);
    m_model.startEncoding();
    m_fixture.settle();
    m_model.confirmOverwrite();
    ASSERT_TRUE(m_tools.waitFor(u"still"_s));
    cancelAndWait();
    EXPECT_EQ(test::namesIn(m_fixture.outputPath()),
              (QStringList{u"01-A.flac"_s, u"03-C.flac"_s, m_model.lastLogURL.value().value().fileName()}));
    EXPECT_EQ(test::readFile(m_fixture.outputPath(u"03-C.flac"_s)), "older");
}

TEST_F(CancelledJob, AsksAboutTheFinishedFilesNextTime)
{
    setEncodingOf(2, standStill);
    ASSERT_NO_FATAL_FAILURE(startAndWaitFor(u"still"_s));
    cancelAndWait();
    m_model.startEncoding();
    m_fixture.settle();
    ASSERT_TRUE(m_model.pendingOverwrite.value());
    EXPECT_EQ(m_model.pendingOverwrite.value()->filenames, QStringList{u"01-A.flac"_s});
}

TEST(CancelledEncoding, LeavesNoPartOfARealFlac)
{
    // Two hours of a tone keep ffmpeg busy long enough.
    const QString source = test::sharedSource(
        u"long"_s,
        {.sampleRate = 8000, .channelLayout = u"mono"_s, .duration = 1, .chapters = {{0, 1, u"One"_s}}});
    ScriptedTools tools({{0, 0.5, u"A"_s}, {0.5, 1, u"B"_s}});
    tools.setEncoding(
        "[ \"$track\" = 1 ] || set -- -re -stream_loop -1 -i \"$source\" -t 7200 -y \"$output\"\n"
        "echo $$ > \"$here/pid\"\nexec " +
        ScriptedTools::realEncoding());
    ModelFixture fixture({.tools = tools.location()});
    fixture.prepareJob(source);
    fixture->startEncoding();
    ASSERT_TRUE(
        test::eventually([&] { return test::namesIn(fixture.outputPath()).contains(u"02-B.flac"_s); }));
    fixture->cancelEncoding();
    fixture.waitForJobEnd();
    EXPECT_FALSE(tools.isRunning());
    EXPECT_EQ(test::namesIn(fixture.outputPath()),
              (QStringList{u"01-A.flac"_s, fixture->lastLogURL.value().value().fileName()}));
    EXPECT_EQ(test::sampleCount(fixture.outputPath(u"01-A.flac"_s)), 4000);
}

} // namespace tonearm
