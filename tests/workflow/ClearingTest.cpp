// SPDX-License-Identifier: GPL-3.0-or-later
// The window emptied for the next job.
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ScriptedTools;
using Kind = WorkflowState::Kind;

namespace {

// A window after a finished job.
class Clearing : public testing::Test
{
protected:
    void SetUp() override
    {
        for (QProperty<QString> *field : fields())
            *field = u"1"_s;
        m_fixture.prepareJob(m_tools.source());
        m_fixture.runJob();
        ASSERT_TRUE(m_model.completion.value());
    }

    QList<QProperty<QString> *> fields()
    {
        return {&m_model.artist, &m_model.albumTitle, &m_model.albumYear,
                &m_model.genre,  &m_model.discNumber, &m_model.discTotal};
    }

    void expectEmpty()
    {
        EXPECT_FALSE(m_model.hasSource());
        EXPECT_FALSE(m_model.sourceAudio.value());
        EXPECT_TRUE(m_model.chapters.value().isEmpty());
        for (const QProperty<QString> *field : fields())
            EXPECT_EQ(field->value(), QString());
        EXPECT_TRUE(m_model.encodedFiles.value().isEmpty());
        EXPECT_EQ(m_model.encodingProgress.value(), 0.0);
        EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::idle));
        EXPECT_EQ(m_model.progressMessage.value(), QString());
        EXPECT_EQ(m_model.statusText(), QString());
    }

    ScriptedTools m_tools;
    ModelFixture m_fixture{{.tools = m_tools.location()}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(Clearing, EmptiesSourceAndAlbum)
{
    m_model.clearInputs();
    expectEmpty();
}

TEST_F(Clearing, LeavesTheFoldersTheLogAndTheSummary)
{
    const QUrl log = m_model.lastLogURL.value().value();
    const EncodingCompletion completion = m_model.completion.value().value();
    m_model.clearInputs();
    EXPECT_EQ(m_model.outputFolderURL.value(), QUrl::fromLocalFile(m_fixture.outputPath()));
    EXPECT_EQ(m_model.lastOutputFolder.value(), QUrl::fromLocalFile(m_fixture.outputPath(u"1/1"_s)));
    EXPECT_EQ(m_model.lastLogURL.value(), log);
    EXPECT_EQ(m_model.completion.value(), completion);
}

TEST_F(Clearing, TakesTheSummaryAwayFromItsButton)
{
    m_model.clearOrEject();
    expectEmpty();
    EXPECT_FALSE(m_model.completion.value());
    EXPECT_FALSE(m_model.canRevealOutput());
    EXPECT_TRUE(m_model.hasLogFile());
}

TEST_F(Clearing, LeavesAnAlertThatWaits)
{
    const AlertContent alert(u"A"_s, u"B"_s);
    m_model.alert = alert;
    m_model.clearInputs();
    EXPECT_EQ(m_model.alert.value(), alert);
}

TEST_F(Clearing, IsPossibleAfterAnError)
{
    m_model.currentState = WorkflowState::error(u"No good."_s);
    m_model.clearOrEject();
    expectEmpty();
}

TEST_F(Clearing, MakesRoomForTheNextFile)
{
    m_model.clearOrEject();
    m_fixture.loadFile(m_tools.source());
    EXPECT_EQ(m_model.statusText(), u"Found 1 chapter."_s);
    EXPECT_TRUE(m_model.canEncode());
}

} // namespace tonearm
