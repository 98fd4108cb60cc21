// SPDX-License-Identifier: GPL-3.0-or-later
// The question before a new source takes the place of one that the user has worked on.
#include "helpers/Contents.h"
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

class SourceChange : public testing::Test
{
protected:
    void SetUp() override
    {
        test::writeFile(m_old.toLocalFile(), "old");
        test::writeFile(m_new.toLocalFile(), "new");
        m_fixture.loadFile(m_old.toLocalFile());
    }

    ScriptedTools m_tools{{{0, 1, u"One"_s}, {1, 2, u"Two"_s}, {2, 3, u"Three"_s}}};
    ModelFixture m_fixture{{.tools = m_tools.location()}};
    AppModel &m_model = m_fixture.model();
    QUrl m_old = m_fixture.url(u"old.mkv"_s);
    QUrl m_new = m_fixture.url(u"new.mkv"_s);
};

} // namespace

TEST_F(SourceChange, AsksNothingWithoutWork)
{
    m_model.artist = u"The Artist"_s;
    m_model.requestFile(m_new);
    EXPECT_FALSE(m_model.pendingSourceChange.value());
    EXPECT_EQ(m_model.inputFileURL.value(), m_new);
    EXPECT_EQ(m_model.artist.value(), u"The Artist"_s);
}

TEST_F(SourceChange, AsksAboutEditedTitles)
{
    m_model.setMappedTitle(0, u"Eins"_s);
    m_model.requestFile(m_new);
    ASSERT_TRUE(m_model.pendingSourceChange.value());
    EXPECT_EQ(m_model.pendingSourceChange.value()->source, PendingSourceChange::Source(m_new));
    EXPECT_EQ(m_model.pendingSourceChange.value()->summary, u"1 edited title"_s);
    EXPECT_EQ(m_model.inputFileURL.value(), m_old);

    m_model.setMappedTitle(2, u"Drei"_s);
    m_model.requestFile(m_new);
    EXPECT_EQ(m_model.pendingSourceChange.value()->summary, u"2 edited titles"_s);
    EXPECT_EQ(m_model.pendingSourceChange.value()->message(),
              u"Loading new.mkv will discard 2 edited titles. Nothing has been encoded yet."_s);
}

TEST_F(SourceChange, CountsATitleOfBlanksAsAnEdit)
{
    m_model.setMappedTitle(0, u"  "_s);
    m_model.requestFile(m_new);
    EXPECT_TRUE(m_model.pendingSourceChange.value());
    EXPECT_FALSE(m_model.canEncode());
}

TEST_F(SourceChange, AsksNothingOnceTheTitlesAreTheSourcesAgain)
{
    m_model.setMappedTitle(0, u"Eins"_s);
    m_model.setMappedTitle(0, u"One"_s);
    m_model.requestFile(m_new);
    EXPECT_FALSE(m_model.pendingSourceChange.value());
}

TEST_F(SourceChange, AsksNothingAfterAFinishedJob)
{
    m_model.setMappedTitle(0, u"Eins"_s);
    m_model.completion = EncodingCompletion();
    m_model.requestFile(m_new);
    EXPECT_FALSE(m_model.pendingSourceChange.value());
    EXPECT_EQ(m_model.inputFileURL.value(), m_new);
}

TEST_F(SourceChange, AsksNothingWithoutASource)
{
    m_model.setMappedTitle(0, u"Eins"_s);
    m_model.inputFileURL = std::nullopt;
    m_model.requestFile(m_new);
    EXPECT_FALSE(m_model.pendingSourceChange.value());
    EXPECT_EQ(m_model.inputFileURL.value(), m_new);
}

TEST_F(SourceChange, AsksAboutADropAndAboutAChosenFile)
{
    m_model.setMappedTitle(0, u"Eins"_s);
    EXPECT_TRUE(m_model.acceptDroppedFile(m_new));
    const std::optional<PendingSourceChange> dropped = m_model.pendingSourceChange.value();
    EXPECT_TRUE(dropped);

    m_model.pendingSourceChange = std::nullopt;
    m_fixture.panels().prepareAnswer(m_new);
    m_model.chooseInputFile();
    m_fixture.settle();
    EXPECT_TRUE(m_model.pendingSourceChange.value());
    EXPECT_NE(m_model.pendingSourceChange.value(), dropped);
    EXPECT_EQ(m_model.inputFileURL.value(), m_old);
}

TEST_F(SourceChange, LoadsTheFileWhenConfirmed)
{
    m_model.setMappedTitle(0, u"Eins"_s);
    m_model.requestFile(m_new);
    m_model.confirmPendingSourceChange();
    EXPECT_FALSE(m_model.pendingSourceChange.value());
    EXPECT_EQ(m_model.inputFileURL.value(), m_new);
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::extractingChapters));
}

TEST_F(SourceChange, KeepsEverythingWhenDeclined)
{
    m_model.setMappedTitle(0, u"Eins"_s);
    m_model.requestFile(m_new);
    m_model.pendingSourceChange = std::nullopt;
    m_model.confirmPendingSourceChange();
    EXPECT_EQ(m_model.inputFileURL.value(), m_old);
    EXPECT_EQ(m_model.chapters.value()[0].mappedTitle, u"Eins"_s);
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::awaitingUserMapping));
}

} // namespace tonearm
