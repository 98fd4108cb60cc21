// SPDX-License-Identifier: GPL-3.0-or-later
// What the model knows of the audio tools.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::eventually;
using test::ModelFixture;
using test::ScriptedTools;
using test::StandInTools;

namespace {

const QString damaged =
    u" ships inside Tonearm, so this copy of the app looks damaged. Replacing it with a fresh "
    u"download should restore it."_s;

class FFmpegCheck : public testing::Test
{
protected:
    void check()
    {
        m_model.checkFFmpeg();
        ASSERT_TRUE(eventually([this] { return !m_model.ffmpegCheckTask.value(); }));
    }

    // Takes ffmpeg away, so that a check misses it, and gives it back.
    void loseFFmpeg()
    {
        ASSERT_TRUE(QFile::rename(m_tools.path(u"bin/ffmpeg"_s), m_tools.path(u"ffmpeg"_s)));
        check();
        ASSERT_TRUE(QFile::rename(m_tools.path(u"ffmpeg"_s), m_tools.path(u"bin/ffmpeg"_s)));
    }

    QString missingText() const { return std::get<FFmpegMissing>(m_model.ffmpegStatus.value()).text; }

    ScriptedTools m_tools;
    ModelFixture m_fixture{{.tools = m_tools.location(), .announcementTime = 1h}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(FFmpegCheck, FindsTheToolsThatShipWithTheApplication)
{
    ModelFixture fixture;
    fixture.findTools();
    const auto found = std::get<FFmpegInstallation>(fixture->ffmpegStatus.value());
    EXPECT_EQ(found.ffmpegURL, test::bundledTools().toolURL(u"ffmpeg"_s));
    EXPECT_EQ(found.ffprobeURL, test::bundledTools().toolURL(u"ffprobe"_s));
    ASSERT_TRUE(found.versionSummary);
    EXPECT_TRUE(found.versionSummary->startsWith(u"ffmpeg "_s)) << found.versionSummary->toStdString();
}

TEST_F(FFmpegCheck, RunsUntilItsEnd)
{
    m_model.checkFFmpeg();
    EXPECT_TRUE(m_model.ffmpegCheckTask.value());
    EXPECT_EQ(m_model.ffmpegStatus.value(), FFmpegStatus(FFmpegChecking{}));
    EXPECT_TRUE(eventually([this] { return !m_model.ffmpegCheckTask.value(); }));
    EXPECT_TRUE(m_model.isFFmpegInstalled());
}

TEST_F(FFmpegCheck, AnnouncesNothingWhenItSucceedsAtOnce)
{
    check();
    EXPECT_FALSE(m_model.didJustFindFFmpeg.value());
    EXPECT_FALSE(m_model.confirmationTask.value());
}

TEST_F(FFmpegCheck, TellsWhatIsMissing)
{
    for (const QString &tool : {u"ffprobe"_s, u"ffmpeg"_s}) {
        ASSERT_TRUE(QFile::remove(m_tools.path(u"bin/"_s + tool)));
        check();
        EXPECT_EQ(missingText(), tool + u" could not be found. "_s + tool + damaged);
        EXPECT_FALSE(m_model.isFFmpegInstalled());
    }
}

TEST_F(FFmpegCheck, TellsWhyAToolDoesntRun)
{
    m_tools.add(u"ffprobe"_s, "echo 'no good' >&2; exit 3");
    check();
    EXPECT_EQ(missingText(),
              u"ffprobe could not be started. Tonearm's copy of ffprobe failed to launch, which "
              u"usually means the app bundle is damaged. Replacing it with a fresh download should "
              u"restore it.\n\nffprobe exited with status 3.\n\nno good"_s);
}

TEST_F(FFmpegCheck, TellsOfLostResources)
{
    ModelFixture fixture({.tools = ToolLocation(std::nullopt)});
    fixture->checkFFmpeg();
    ASSERT_TRUE(eventually([&] { return !fixture->ffmpegCheckTask.value(); }));
    EXPECT_EQ(fixture->ffmpegStatus.value(),
              FFmpegStatus(FFmpegMissing{u"ffmpeg could not be found. ffmpeg"_s + damaged}));
}

TEST_F(FFmpegCheck, KeepsTheStatusWhileItIsRepeated)
{
    ASSERT_NO_FATAL_FAILURE(loseFFmpeg());
    const FFmpegStatus missing = m_model.ffmpegStatus.value();
    m_model.checkFFmpeg();
    EXPECT_EQ(m_model.ffmpegStatus.value(), missing);
    EXPECT_TRUE(eventually([this] { return m_model.isFFmpegInstalled(); }));
}

TEST_F(FFmpegCheck, AnnouncesToolsThatWereMissing)
{
    ASSERT_NO_FATAL_FAILURE(loseFFmpeg());
    EXPECT_FALSE(m_model.didJustFindFFmpeg.value());
    check();
    EXPECT_TRUE(m_model.isFFmpegInstalled());
    EXPECT_TRUE(m_model.didJustFindFFmpeg.value());
    EXPECT_TRUE(m_model.confirmationTask.value());
}

TEST_F(FFmpegCheck, TakesTheAnnouncementBackWhenTheToolsGoAgain)
{
    ASSERT_NO_FATAL_FAILURE(loseFFmpeg());
    check();
    m_model.ffmpegStatus = FFmpegMissing{};
    ASSERT_NO_FATAL_FAILURE(loseFFmpeg());
    EXPECT_FALSE(m_model.didJustFindFFmpeg.value());
}

TEST_F(FFmpegCheck, IsNotRepeatedOnceTheToolsAreFound)
{
    check();
    ASSERT_TRUE(QFile::remove(m_tools.path(u"bin/ffmpeg"_s)));
    m_model.checkFFmpeg();
    EXPECT_FALSE(m_model.ffmpegCheckTask.value());
    EXPECT_TRUE(m_model.isFFmpegInstalled());
}

TEST_F(FFmpegCheck, IsNotStartedWhileItRuns)
{
    m_tools.add(u"ffprobe"_s, R"(echo run >> "$here/runs"; while [ ! -e "$here/go" ]; do sleep 0.01; done)");
    m_model.checkFFmpeg();
    ASSERT_TRUE(m_tools.waitFor(u"runs"_s));
    m_model.checkFFmpeg();
    m_fixture.settle();
    m_tools.release(u"go"_s);
    EXPECT_TRUE(eventually([this] { return !m_model.ffmpegCheckTask.value(); }));
    m_fixture.settle();
    EXPECT_FALSE(m_model.ffmpegCheckTask.value());
    EXPECT_EQ(test::readFile(m_tools.path(u"runs"_s)), "run\n");
}

TEST_F(FFmpegCheck, BeginsTheAnnouncementAnewAfterAFurtherFind)
{
    m_model.ffmpegStatus = FFmpegMissing{};
    check();
    const TaskHandle first = m_model.confirmationTask.value().value();
    EXPECT_FALSE(first.stopToken().stop_requested());
    m_model.ffmpegStatus = FFmpegMissing{};
    check();
    EXPECT_TRUE(first.stopToken().stop_requested());
    EXPECT_FALSE(m_model.confirmationTask.value().value().stopToken().stop_requested());
    // What has been cut short takes nothing back.
    m_fixture.settle();
    EXPECT_TRUE(m_model.didJustFindFFmpeg.value());
}

TEST_F(FFmpegCheck, AnnouncesAFindForTheWholeTime)
{
    constexpr std::chrono::milliseconds length = 100ms;
    constexpr auto leeway = length / 20; // what a coarse timer may come early
    ModelFixture fixture({.tools = m_tools.location(), .announcementTime = length});
    fixture->ffmpegStatus = FFmpegMissing{};
    QElapsedTimer sinceFind;
    qint64 announced = 0;
    const auto onChange = fixture->didJustFindFFmpeg.onValueChanged([&] {
        if (fixture->didJustFindFFmpeg.value())
            sinceFind.start();
        else
            announced = sinceFind.elapsed();
    });
    fixture->checkFFmpeg();
    EXPECT_TRUE(eventually([&] { return sinceFind.isValid() && !fixture->didJustFindFFmpeg.value(); }));
    EXPECT_GE(announced, (length - leeway).count());
    EXPECT_TRUE(fixture->isFFmpegInstalled());
}

namespace {

class ParanoiaCheck : public testing::Test
{
protected:
    void check()
    {
        m_model.checkCDParanoia();
        ASSERT_TRUE(m_model.paranoiaCheckTask.value());
        ASSERT_TRUE(eventually([this] { return !m_model.paranoiaCheckTask.value(); }));
    }

    void addTool(const QByteArray &body) { m_tools.add(u"cd-paranoia"_s, body); }

    StandInTools m_tools;
    ModelFixture m_fixture{{.tools = m_tools.location()}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(ParanoiaCheck, SaysNothingOfAMissingTool)
{
    check();
    EXPECT_FALSE(m_model.cdParanoiaInstallation.value());
    EXPECT_FALSE(m_model.alert.value());
    EXPECT_EQ(m_model.currentState.value(), WorkflowState());
}

TEST_F(ParanoiaCheck, TakesPlaceAndVersion)
{
    addTool("[ \"$*\" = --version ] && echo 'cd-paranoia 10.2+2.0.1 libcdio 2.1.0' >&2");
    check();
    const CDParanoiaInstallation expected = {.executableURL = m_tools.location().toolURL(u"cd-paranoia"_s),
                                             .versionSummary = u"cd-paranoia 10.2+2.0.1"_s};
    EXPECT_EQ(m_model.cdParanoiaInstallation.value(), expected);
}

TEST_F(ParanoiaCheck, CountsAToolThatDoesntTellItsVersion)
{
    addTool("exit 3");
    check();
    const CDParanoiaInstallation expected = {.executableURL = m_tools.location().toolURL(u"cd-paranoia"_s),
                                             .versionSummary = std::nullopt};
    EXPECT_EQ(m_model.cdParanoiaInstallation.value(), expected);
}

TEST_F(ParanoiaCheck, FindsAToolThatCameLater)
{
    check();
    addTool("echo 'cd-paranoia 10.2'");
    check();
    EXPECT_TRUE(m_model.cdParanoiaInstallation.value());
}

TEST_F(ParanoiaCheck, IsNotRepeatedOnceTheToolIsFound)
{
    addTool("echo 'cd-paranoia 10.2'");
    check();
    ASSERT_TRUE(QFile::remove(m_tools.path(u"bin/cd-paranoia"_s)));
    m_model.checkCDParanoia();
    EXPECT_FALSE(m_model.paranoiaCheckTask.value());
    EXPECT_TRUE(m_model.cdParanoiaInstallation.value());
}

TEST_F(ParanoiaCheck, IsNotStartedWhileItRuns)
{
    addTool(R"(echo run >> "$here/runs"; while [ ! -e "$here/go" ]; do sleep 0.01; done)");
    m_model.checkCDParanoia();
    ASSERT_TRUE(m_tools.waitFor(u"runs"_s));
    m_model.checkCDParanoia();
    m_fixture.settle();
    test::writeFile(m_tools.path(u"go"_s), {});
    EXPECT_TRUE(eventually([this] { return m_model.cdParanoiaInstallation.value().has_value(); }));
    EXPECT_EQ(test::readFile(m_tools.path(u"runs"_s)), "run\n");
}

TEST_F(ParanoiaCheck, FindsTheToolThatShipsWithTheApplication)
{
    ModelFixture fixture;
    fixture->checkCDParanoia();
    ASSERT_TRUE(eventually([&] { return !fixture->paranoiaCheckTask.value(); }));
    EXPECT_TRUE(fixture->cdParanoiaInstallation.value());
}

} // namespace tonearm
