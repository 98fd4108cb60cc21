// SPDX-License-Identifier: GPL-3.0-or-later
// Closing the window while a job runs.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ScriptedTools;

namespace {

class Closing : public testing::Test
{
protected:
    void startJob()
    {
        m_tools.setEncoding(ScriptedTools::waiting("go") + "echo sound > \"$output\"");
        m_fixture.prepareJob(m_tools.source());
        m_model.startEncoding();
        ASSERT_TRUE(test::eventually([this] { return m_tools.hasStarted(1); }));
    }

    ScriptedTools m_tools;
    ModelFixture m_fixture{{.tools = m_tools.location()}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(Closing, NeedsNoQuestionWithoutAJob)
{
    EXPECT_TRUE(m_model.requestClose());
    EXPECT_FALSE(m_model.pendingClose.value());
    EXPECT_FALSE(m_model.isReadyToClose());
}

TEST_F(Closing, IsAskedAboutWhileAJobRuns)
{
    ASSERT_NO_FATAL_FAILURE(startJob());
    EXPECT_FALSE(m_model.requestClose());
    const std::optional<PendingClose> question = m_model.pendingClose.value();
    EXPECT_TRUE(question);
    EXPECT_FALSE(m_model.isReadyToClose());
    EXPECT_FALSE(m_model.requestClose());
    EXPECT_EQ(m_model.pendingClose.value(), question);
}

TEST_F(Closing, StopsTheJobAndIsReadyAtItsEnd)
{
    ASSERT_NO_FATAL_FAILURE(startJob());
    m_model.requestClose();
    m_model.confirmPendingClose();
    EXPECT_FALSE(m_model.pendingClose.value());
    EXPECT_FALSE(m_model.isReadyToClose());
    EXPECT_FALSE(m_model.requestClose());
    EXPECT_FALSE(m_model.pendingClose.value());
    m_fixture.waitForJobEnd();
    EXPECT_TRUE(m_model.isReadyToClose());
    EXPECT_EQ(m_model.statusText(), u"Encoding cancelled."_s);
    EXPECT_EQ(test::namesIn(m_fixture.outputPath()),
              QStringList{m_model.lastLogURL.value().value().fileName()});
    EXPECT_TRUE(m_model.requestClose());
}

TEST_F(Closing, LetsTheJobGoOnWhenDeclined)
{
    ASSERT_NO_FATAL_FAILURE(startJob());
    m_model.requestClose();
    m_model.pendingClose = std::nullopt;
    m_model.confirmPendingClose();
    m_tools.release(u"go"_s);
    m_fixture.waitForJobEnd();
    EXPECT_TRUE(m_model.completion.value());
    EXPECT_FALSE(m_model.isReadyToClose());
    EXPECT_TRUE(m_model.requestClose());
}

TEST_F(Closing, IsReadyAtOnceWhenTheJobEndedDuringTheQuestion)
{
    ASSERT_NO_FATAL_FAILURE(startJob());
    m_model.requestClose();
    m_tools.release(u"go"_s);
    m_fixture.waitForJobEnd();
    EXPECT_TRUE(m_model.pendingClose.value());
    m_model.confirmPendingClose();
    EXPECT_TRUE(m_model.isReadyToClose());
    EXPECT_TRUE(m_model.completion.value());
}

TEST_F(Closing, DropsTheQuestionWithTheWindow)
{
    ASSERT_NO_FATAL_FAILURE(startJob());
    m_model.requestClose();
    m_tools.release(u"go"_s);
    m_fixture.waitForJobEnd();
    EXPECT_TRUE(m_model.requestClose());
    EXPECT_FALSE(m_model.pendingClose.value());
}

TEST_F(Closing, IsForgottenOnceTheWindowHasClosed)
{
    ASSERT_NO_FATAL_FAILURE(startJob());
    m_model.requestClose();
    m_model.confirmPendingClose();
    m_fixture.waitForJobEnd();
    EXPECT_TRUE(m_model.requestClose());
    EXPECT_FALSE(m_model.isReadyToClose());
    // The window opens again, and a new job runs.
    m_model.startEncoding();
    ASSERT_NO_FATAL_FAILURE(m_fixture.waitForJobStart());
    EXPECT_FALSE(m_model.requestClose());
    EXPECT_TRUE(m_model.pendingClose.value());
}

} // namespace tonearm
