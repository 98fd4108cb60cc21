// SPDX-License-Identifier: GPL-3.0-or-later
// A model that goes while something is under way: whatever it began ends with it.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::eventually;
using test::ModelFixture;
using test::ScriptedTools;

namespace {

constexpr auto sleepOn = R"(echo $$ > "$here/pid"; touch "$here/still"; exec sleep 600)";

class DroppedModel : public testing::Test
{
protected:
    void startJob()
    {
        m_fixture.prepareJob(m_tools.source());
        m_model.startEncoding();
    }

    ScriptedTools m_tools{{{0, 1, u"One"_s}, {1, 2, u"Two"_s}}};
    ModelFixture m_fixture{{.tools = m_tools.location(), .announcementTime = 1h}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(DroppedModel, EndsAnInspection)
{
    m_tools.setProbe(sleepOn);
    m_model.loadFile(QUrl::fromLocalFile(m_tools.source()));
    ASSERT_TRUE(m_tools.waitFor(u"still"_s));
    EXPECT_TRUE(m_tools.isRunning());
    m_fixture.dropModel();
    EXPECT_FALSE(m_tools.isRunning());
}

TEST_F(DroppedModel, EndsAnInspectionThatHasntBegun)
{
    m_tools.setProbe(sleepOn);
    m_model.loadFile(QUrl::fromLocalFile(m_tools.source()));
    m_fixture.dropModel();
    EXPECT_FALSE(test::namesIn(m_tools.path()).contains(u"still"_s));
}

TEST_F(DroppedModel, EndsSeveralInspections)
{
    m_tools.setProbe(R"(echo run >> "$here/runs"; exec sleep 600)");
    for (int count = 0; count < 3; ++count)
        m_model.loadFile(QUrl::fromLocalFile(m_tools.source()));
    ASSERT_TRUE(m_tools.waitFor(u"runs"_s));
    m_fixture.dropModel();
}

TEST_F(DroppedModel, EndsAJobAndItsChild)
{
    m_tools.setEncoding(QByteArray("echo part > \"$output\"; ") + sleepOn);
    startJob();
    ASSERT_TRUE(m_tools.waitFor(u"still"_s));
    EXPECT_TRUE(m_tools.isRunning());
    m_fixture.dropModel();
    EXPECT_FALSE(m_tools.isRunning());
    // The log says that the job was stopped, and nothing else is left.
    const QStringList names = test::namesIn(m_fixture.outputPath());
    ASSERT_EQ(names.size(), 1);
    EXPECT_TRUE(test::readFile(m_fixture.outputPath(names[0])).contains("cancelled by the user"));
}

TEST_F(DroppedModel, EndsAJobThatIsAboutToBegin)
{
    startJob();
    m_fixture.dropModel();
    EXPECT_FALSE(m_tools.hasStarted(1));
    EXPECT_TRUE(test::namesIn(m_fixture.outputPath()).isEmpty());
}

TEST_F(DroppedModel, EndsAJobThatHasJustBegun)
{
    startJob();
    m_fixture.waitForJobStart();
    m_fixture.dropModel();
    EXPECT_FALSE(m_tools.hasStarted(2));
}

TEST_F(DroppedModel, EndsAJobWhoseProgressIsOnItsWay)
{
    m_tools.setEncoding(R"(touch "$here/still"
                           while :; do printf 'out_time=00:00:01\n' >&2; done)");
    startJob();
    ASSERT_TRUE(m_tools.waitFor(u"still"_s));
    m_fixture.dropModel();
}

TEST_F(DroppedModel, EndsAnAnnouncement)
{
    for (const bool hasBegun : {false, true}) {
        ModelFixture fixture({.tools = m_tools.location(), .announcementTime = 1h});
        fixture->ffmpegStatus = FFmpegMissing{};
        fixture.findTools();
        ASSERT_TRUE(fixture->didJustFindFFmpeg.value());
        if (hasBegun)
            fixture.settle();
        fixture.dropModel();
    }
}

TEST_F(DroppedModel, EndsTheChecksOfTheTools)
{
    for (const QString &tool : {u"ffmpeg"_s, u"cd-paranoia"_s})
        m_tools.add(tool, "touch \"$here/" + tool.toLatin1() + "-still\"; exec sleep 600");
    m_model.checkFFmpeg();
    m_model.checkCDParanoia();
    ASSERT_TRUE(m_tools.waitFor(u"ffmpeg-still"_s));
    ASSERT_TRUE(m_tools.waitFor(u"cd-paranoia-still"_s));
    m_fixture.dropModel();
}

TEST_F(DroppedModel, ClosesItsPanels)
{
    m_model.chooseInputFile();
    m_model.chooseOutputFolder();
    ASSERT_TRUE(eventually([this] { return m_fixture.panels().openCount() == 2; }));
    m_fixture.dropModel();
    EXPECT_EQ(m_fixture.panels().openCount(), 0);
}

TEST_F(DroppedModel, ShowsNothingMore)
{
    m_model.outputFolderURL = m_fixture.url(u"out"_s);
    m_model.revealOutput();
    m_fixture.dropModel();
    EXPECT_TRUE(m_fixture.fileViewer().selections().isEmpty());
}

} // namespace tonearm
