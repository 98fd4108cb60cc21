// SPDX-License-Identifier: GPL-3.0-or-later
// A job of which one track fails.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"
#include "helpers/Sources.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ScriptedTools;
using Kind = WorkflowState::Kind;

namespace {

QString fourChapters()
{
    return test::sharedSource(
        u"four"_s, {.duration = 2,
                    .chapters = {{0, 0.5, u"A"_s}, {0.5, 1, u"B"_s}, {1, 1.5, u"C"_s}, {1.5, 2, u"D"_s}}});
}

// A job of four tracks with real sound, the third of which goes wrong.
class FailedJob : public testing::Test
{
protected:
    void run(const QByteArray &bodyOfThird)
    {
        m_tools.setEncoding("if [ \"$track\" = 3 ]; then\n" + bodyOfThird + "\nfi\nexec " +
                            ScriptedTools::realEncoding());
        m_fixture.prepareJob(m_source);
        m_fixture.runJob();
    }

    void expectFailure(const QString &description)
    {
        EXPECT_EQ(m_model.currentState.value(), WorkflowState::error(description));
        EXPECT_EQ(m_model.statusText(), description);
        EXPECT_EQ(m_model.progressMessage.value(), u"Encoding failed."_s);
        EXPECT_TRUE(m_model.encodedFiles.value().isEmpty());
        EXPECT_FALSE(m_model.completion.value());
        EXPECT_FALSE(m_model.lastOutputFolder.value());
        ASSERT_TRUE(m_model.alert.value());
        EXPECT_EQ(m_model.alert.value()->title, u"Encoding Failed"_s);
    }

    // The first two files stay, with what ffmpeg makes of them by hand; nothing of the third.
    void expectTwoWholeFiles()
    {
        EXPECT_EQ(
            test::namesIn(m_fixture.outputPath()),
            (QStringList{u"01-A.flac"_s, u"02-B.flac"_s, m_model.lastLogURL.value().value().fileName()}));
        EXPECT_EQ(test::decodedAudio(m_fixture.outputPath(u"02-B.flac"_s)),
                  test::bareCut(fourChapters(), {0.5, 1}));
    }

    QString log()
    {
        return QString::fromUtf8(test::readFile(m_model.lastLogURL.value().value().toLocalFile()));
    }

    ScriptedTools m_tools{{{0, 0.5, u"A"_s}, {0.5, 1, u"B"_s}, {1, 1.5, u"C"_s}, {1.5, 2, u"D"_s}}};
    ModelFixture m_fixture{{.tools = m_tools.location()}};
    AppModel &m_model = m_fixture.model();
    QString m_source = fourChapters();
};

} // namespace

TEST_F(FailedJob, EndsWithTheTrackThatFfmpegRefuses)
{
    run("echo part > \"$output\"; echo 'out_time=00:00:00.25' >&2; echo 'no good' >&2; exit 9");
    const QString text = u"ffmpeg exited with status 9.\n\nout_time=00:00:00.25\nno good"_s;
    expectFailure(text);
    EXPECT_EQ(m_model.alert.value().value().message, text);
    expectTwoWholeFiles();
    EXPECT_FALSE(m_tools.hasStarted(4));
    EXPECT_EQ(m_model.encodingProgress.value(), 0.625);
}

TEST_F(FailedJob, EndsWhenASignalKillsFfmpeg)
{
    run("echo part > \"$output\"; kill -9 $$");
    expectFailure(u"ffmpeg exited with status 9."_s);
    EXPECT_EQ(m_model.alert.value().value().message, u"ffmpeg exited with status 9."_s);
    expectTwoWholeFiles();
}

TEST_F(FailedJob, LogsEveryChapterAndTheReason)
{
    run("echo 'no good' >&2; exit 9");
    EXPECT_THAT(log().toStdString(),
                testing::ContainsRegex("  02  B  \\[0:00\\.5 – 0:01\\.0\\]  encode [0-9.]+s  "
                                       "→ 02-B\\.flac\n"
                                       "  03  C  \\[0:01\\.0 – 0:01\\.5\\]\n"
                                       "  04  D  \\[0:01\\.5 – 0:02\\.0\\]\n"));
    EXPECT_TRUE(log().contains(u"Files written  2 of 4\n"_s));
    EXPECT_TRUE(log().contains(
        u"Outcome        failed\n  Reason         ffmpeg exited with status 9.\n\nno good\n"_s))
        << log().toStdString();
}

TEST_F(FailedJob, JoinsReasonAndSuggestionWithABlankInTheLog)
{
    m_tools.setEncoding("rm \"$0\"\nexec " + ScriptedTools::realEncoding());
    m_fixture.prepareJob(m_source);
    m_fixture.runJob();
    expectFailure(u"ffmpeg could not be found."_s);
    const QString suggestion =
        u"ffmpeg ships inside Tonearm, so this copy of the app looks damaged. Replacing it "
        u"with a fresh download should restore it."_s;
    EXPECT_EQ(m_model.alert.value().value().message, u"ffmpeg could not be found.\n\n"_s + suggestion);
    EXPECT_TRUE(log().contains(u"Reason         ffmpeg could not be found. "_s + suggestion + u'\n'));
    EXPECT_EQ(test::namesIn(m_fixture.outputPath()),
              (QStringList{u"01-A.flac"_s, m_model.lastLogURL.value().value().fileName()}));
}

TEST_F(FailedJob, EndsWhenTheSourceVanishes)
{
    m_source = m_fixture.path(u"vanishing.mkv"_s);
    ASSERT_TRUE(QFile::copy(fourChapters(), m_source));
    run("rm \"$source\"");
    expectFailure(u"ffmpeg exited with status 1.\n\n"_s + m_source + u": No such file or directory"_s);
    expectTwoWholeFiles();
}

TEST_F(FailedJob, EndsWhenFfmpegCantBeStarted)
{
    m_fixture.prepareJob(m_source);
    m_tools.addBytes(u"ffmpeg"_s, "#!/nonexistent/interpreter\n");
    m_fixture.runJob();
    expectFailure(m_model.statusText());
    EXPECT_THAT(m_model.statusText().toStdString(), testing::HasSubstr("No such file or directory."));
    EXPECT_EQ(m_model.alert.value().value().message, m_model.statusText());
    EXPECT_EQ(test::namesIn(m_fixture.outputPath()),
              QStringList{m_model.lastLogURL.value().value().fileName()});
}

TEST_F(FailedJob, CanBeTriedAgain)
{
    run("[ -e \"$here/mended\" ] || exit 9");
    m_tools.release(u"mended"_s);
    m_model.startEncoding();
    m_fixture.settle();
    ASSERT_TRUE(m_model.pendingOverwrite.value());
    EXPECT_EQ(m_model.pendingOverwrite.value()->filenames, (QStringList{u"01-A.flac"_s, u"02-B.flac"_s}));
    m_model.confirmOverwrite();
    m_fixture.waitForJobEnd();
    EXPECT_EQ(m_model.completion.value().value().fileCount, 4);
}

TEST(FailedJobOnSource, TellsThatTheSourceHasNoAudio)
{
    const QString source = test::sharedSource(
        u"silent"_s, {.audioCodec = {}, .duration = 1, .chapters = {{0, 1, u"One"_s}}, .hasVideo = true});
    ModelFixture fixture;
    fixture.prepareJob(source);
    EXPECT_FALSE(fixture->sourceAudio.value());
    fixture.runJob();
    const QString text = u"ffmpeg exited with status 1.\n\nStream map '0:a:0' matches no streams.\n"
                         u"To ignore this, add a trailing '?' to the map."_s;
    EXPECT_EQ(fixture->currentState.value(), WorkflowState::error(text));
    EXPECT_EQ(fixture->alert.value().value().title, u"Encoding Failed"_s);
    EXPECT_EQ(fixture->alert.value().value().message, text);
    EXPECT_EQ(test::namesIn(fixture.outputPath()),
              QStringList{fixture->lastLogURL.value().value().fileName()});
}

} // namespace tonearm
