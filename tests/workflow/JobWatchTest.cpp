// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/JobWatch.h"

#include "helpers/Await.h"
#include "helpers/FakeDesktop.h"
#include "helpers/ModelFixture.h"
#include "helpers/ScriptedTools.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ScriptedTools;

namespace {

class JobWatchTest : public testing::Test
{
protected:
    void SetUp() override { m_fixture.prepareJob(m_tools.source()); }

    void startHeldJob()
    {
        m_tools.setEncoding(ScriptedTools::waiting("go") + "echo sound > \"$output\"");
        m_fixture->startEncoding();
        ASSERT_TRUE(test::eventually([this] { return m_tools.hasStarted(1); }));
    }

    void expectLetGo()
    {
        EXPECT_FALSE(m_desktop.isAwake());
        EXPECT_EQ(m_desktop.progress().last(), std::nullopt);
    }

    ScriptedTools m_tools{{{0, 1, u"One"_s}, {1, 2, u"Two"_s}}};
    ModelFixture m_fixture{{.tools = m_tools.location()}};
    test::FakeDesktop m_desktop;
    test::FakeWorkWindow m_window;
    LongWork m_work{m_desktop};
    JobWatch m_watch{m_fixture.model(), m_work, m_window.window()};
};

} // namespace

TEST_F(JobWatchTest, IsQuietWhileNoJobRuns)
{
    EXPECT_TRUE(m_desktop.progress().isEmpty());
    EXPECT_TRUE(m_desktop.reasons().isEmpty());
    EXPECT_TRUE(m_desktop.results().isEmpty());
}

TEST_F(JobWatchTest, KeepsTheMachineAwakeFromTheFirstTrackToTheEnd)
{
    startHeldJob();
    EXPECT_TRUE(m_desktop.isAwake());
    EXPECT_EQ(m_desktop.reasons(), QList{u"Encoding to FLAC"_s});
    m_tools.release(u"go"_s);
    m_fixture.waitForJobEnd();
    EXPECT_EQ(m_desktop.reasons().size(), 1);
    expectLetGo();
}

TEST_F(JobWatchTest, ShowsHowFarTheJobIs)
{
    m_fixture.runJob();
    const QList<std::optional<double>> shown = m_desktop.progress();
    EXPECT_EQ(shown.first(), 0.0);
    EXPECT_TRUE(shown.contains(0.5));
    EXPECT_EQ(shown.value(shown.size() - 2), 1.0);
    EXPECT_EQ(shown.last(), std::nullopt);
}

TEST_F(JobWatchTest, TellsOfAJobThatWentWell)
{
    m_fixture.runJob();
    EXPECT_EQ(m_desktop.results(), (QList{WorkResult{u"Encoded 2 tracks to out."_s, {}}}));
    m_desktop.click();
    EXPECT_TRUE(m_window.isInFront);
}

TEST_F(JobWatchTest, TellsWhyAJobFailed)
{
    m_tools.setEncoding("exit 1");
    m_fixture.runJob();
    ASSERT_EQ(m_desktop.results().size(), 1);
    EXPECT_EQ(m_desktop.results().first().headline, u"Encoding failed."_s);
    EXPECT_EQ(m_desktop.results().first().detail, m_fixture->currentState.value().errorText());
    EXPECT_FALSE(m_desktop.results().first().detail.isEmpty());
    expectLetGo();
}

TEST_F(JobWatchTest, DoesNotTellTheUserThatTheyHaveStoppedAJob)
{
    startHeldJob();
    m_fixture->cancelEncoding();
    m_fixture.waitForJobEnd();
    EXPECT_TRUE(m_desktop.results().isEmpty());
    expectLetGo();
}

TEST_F(JobWatchTest, DoesNotTellWhatTheWindowInFrontShows)
{
    m_window.isInFront = true;
    m_fixture.runJob();
    EXPECT_TRUE(m_desktop.results().isEmpty());
    expectLetGo();
}

TEST_F(JobWatchTest, LetsGoIfItGoesBeforeTheJob)
{
    startHeldJob();
    {
        test::FakeDesktop desktop;
        LongWork work(desktop);
        {
            const JobWatch watch(m_fixture.model(), work, m_window.window());
            EXPECT_TRUE(desktop.isAwake());
        }
        EXPECT_FALSE(desktop.isAwake());
        EXPECT_EQ(desktop.progress().last(), std::nullopt);
    }
    m_tools.release(u"go"_s);
    m_fixture.waitForJobEnd();
}

} // namespace tonearm
