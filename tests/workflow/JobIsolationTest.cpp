// SPDX-License-Identifier: GPL-3.0-or-later
// What the user changes while a job runs doesn't reach it.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ScriptedTools;
using Kind = WorkflowState::Kind;

namespace {

// A job that stands still in its first track.
class RunningJob : public testing::Test
{
protected:
    void SetUp() override
    {
        m_tools.setEncoding(ScriptedTools::waiting("go") + "echo sound > \"$output\"");
        m_fixture.prepareJob(m_tools.source());
        m_model.artist = u"The Artist"_s;
        m_model.startEncoding();
        ASSERT_TRUE(test::eventually([this] { return m_tools.hasStarted(1); }));
    }

    void letEnd()
    {
        m_tools.release(u"go"_s);
        m_fixture.waitForJobEnd();
    }

    QString log()
    {
        return QString::fromUtf8(test::readFile(m_model.lastLogURL.value().value().toLocalFile()));
    }

    ScriptedTools m_tools{{{0, 1.5, u"One"_s}, {1.5, 4, u"Two"_s}}};
    ModelFixture m_fixture{{.tools = m_tools.location()}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(RunningJob, KeepsItsTitles)
{
    m_model.setMappedTitle(0, u"Eins"_s);
    m_model.setMappedTitle(1, QString());
    letEnd();
    EXPECT_EQ(m_model.statusText(), u"Encoded 2 tracks to The Artist."_s);
    EXPECT_EQ(
        test::namesIn(m_fixture.outputPath(u"The Artist"_s)),
        (QStringList{u"01-One.flac"_s, u"02-Two.flac"_s, m_model.lastLogURL.value().value().fileName()}));
    EXPECT_THAT(m_tools.argumentsOfTrack(2), testing::Contains(u"title=Two"_s));
    EXPECT_TRUE(log().contains(u"  02  Two  ["_s));
    EXPECT_EQ(m_model.chapters.value()[0].mappedTitle, u"Eins"_s);
}

TEST_F(RunningJob, KeepsItsAlbumAndItsFolders)
{
    m_model.artist = u"Somebody Else"_s;
    m_model.genre = u"Rock"_s;
    m_model.outputFolderURL = m_fixture.url(u"elsewhere"_s);
    m_fixture.settings().setOrganizeIntoArtistAlbumFolders(false);
    letEnd();
    EXPECT_FALSE(test::namesIn(m_fixture.path(u"."_s)).contains(u"elsewhere"_s));
    EXPECT_EQ(m_model.lastOutputFolder.value(), QUrl::fromLocalFile(m_fixture.outputPath(u"The Artist"_s)));
    EXPECT_THAT(m_tools.argumentsOfTrack(2), testing::Contains(u"artist=The Artist"_s));
    EXPECT_THAT(m_tools.argumentsOfTrack(2), testing::Not(testing::Contains(u"genre=Rock"_s)));
    EXPECT_TRUE(log().contains(u"The Artist"_s));
    EXPECT_FALSE(log().contains(u"Somebody Else"_s));
}

TEST_F(RunningJob, GoesOnWithItsSourceWhenAnotherIsLoaded)
{
    test::writeFile(m_fixture.path(u"other.mkv"_s), "other");
    m_fixture.loadFile(m_fixture.path(u"other.mkv"_s));
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::awaitingUserMapping));
    EXPECT_TRUE(m_model.encodingTask.value());
    letEnd();
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::complete));
    EXPECT_THAT(m_tools.argumentsOfTrack(2), testing::Contains(m_tools.source()));
    EXPECT_TRUE(log().contains(m_tools.source()));
}

TEST_F(RunningJob, GoesOnWhenTheInputsAreCleared)
{
    m_model.clearInputs();
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::idle));
    EXPECT_TRUE(m_model.encodingTask.value());
    letEnd();
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::complete));
    EXPECT_EQ(m_model.encodedFiles.value().size(), 2);
}

} // namespace tonearm
