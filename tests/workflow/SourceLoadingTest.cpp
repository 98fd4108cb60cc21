// SPDX-License-Identifier: GPL-3.0-or-later
// How a file becomes the source.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"
#include "workflow/Leftovers.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ScriptedTools;
using Kind = WorkflowState::Kind;

namespace {

class SourceLoading : public testing::Test
{
protected:
    SourceLoading()
    {
        test::writeFile(m_fixture.path(u"a.mkv"_s), "a");
        test::writeFile(m_fixture.path(u"b.mkv"_s), "b");
    }

    void load(const QString &name) { m_fixture.loadFile(m_fixture.path(name)); }

    ScriptedTools m_tools{{{0, 1.5, u"One"_s}, {1.5, 4, u"Two"_s}}};
    ModelFixture m_fixture{{.tools = m_tools.location()}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(SourceLoading, ClearsWhatBelongsToTheOldSourceAtOnce)
{
    test::fillLeftovers(m_model);
    m_model.loadedDisc = DiscInfo();
    m_model.loadFile(m_fixture.url(u"a.mkv"_s));
    EXPECT_EQ(m_model.inputFileURL.value(), m_fixture.url(u"a.mkv"_s));
    EXPECT_FALSE(m_model.loadedDisc.value());
    EXPECT_TRUE(m_model.chapters.value().isEmpty());
    EXPECT_FALSE(m_model.sourceAudio.value());
    test::expectNoLeftovers(m_model);
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::extractingChapters));
    EXPECT_EQ(m_model.progressMessage.value(), QString());
    EXPECT_EQ(m_model.statusText(), u"Reading chapters…"_s);
}

TEST_F(SourceLoading, BeginsFromEveryState)
{
    for (const WorkflowState &state :
         {WorkflowState(Kind::idle), WorkflowState(Kind::extractingChapters),
          WorkflowState(Kind::readingDisc), WorkflowState(Kind::searchingMetadata),
          WorkflowState(Kind::awaitingUserMapping), WorkflowState(Kind::encoding),
          WorkflowState(Kind::complete), WorkflowState::error(u"No good."_s)}) {
        m_model.currentState = state;
        m_model.loadFile(m_fixture.url(u"a.mkv"_s));
        EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::extractingChapters));
        ASSERT_TRUE(test::eventually(
            [this] { return m_model.currentState.value() == WorkflowState(Kind::awaitingUserMapping); }));
    }
}

TEST_F(SourceLoading, LeavesTheFoldersAndTheLog)
{
    test::fillLeftovers(m_model);
    m_model.outputFolderURL = m_fixture.url(u"out"_s);
    load(u"a.mkv"_s);
    EXPECT_EQ(m_model.outputFolderURL.value(), m_fixture.url(u"out"_s));
    EXPECT_EQ(m_model.lastLogURL.value(), QUrl::fromLocalFile(u"/music/old.log"_s));
}

TEST_F(SourceLoading, TakesUpWhatTheFileHolds)
{
    load(u"a.mkv"_s);
    const QList<ChapterInfo> chapters = {
        {.id = 0, .startSeconds = 0, .endSeconds = 1.5, .originalTitle = u"One"_s, .mappedTitle = u"One"_s},
        {.id = 1, .startSeconds = 1.5, .endSeconds = 4, .originalTitle = u"Two"_s, .mappedTitle = u"Two"_s}};
    EXPECT_EQ(m_model.chapters.value(), chapters);
    ASSERT_TRUE(m_model.sourceAudio.value());
    EXPECT_EQ(m_model.sourceAudio.value()->summaryLine(), u"FLAC · 16-bit · 44.1 kHz · Stereo"_s);
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::awaitingUserMapping));
    EXPECT_EQ(m_model.statusText(), u"Found 2 chapters."_s);
    EXPECT_FALSE(m_model.alert.value());
}

TEST_F(SourceLoading, CountsOneChapterInTheSingular)
{
    test::writeFile(m_tools.path(u"reply.json"_s), ScriptedTools::replyFor({{0, 1, u"One"_s}}));
    load(u"a.mkv"_s);
    EXPECT_EQ(m_model.statusText(), u"Found 1 chapter."_s);
}

TEST_F(SourceLoading, TellsWhyAFileCantBeRead)
{
    load(u"gone.mkv"_s);
    EXPECT_TRUE(m_model.chapters.value().isEmpty());
    EXPECT_FALSE(m_model.sourceAudio.value());
    EXPECT_EQ(m_model.currentState.value(), WorkflowState::error(u"\"gone.mkv\" couldn't be opened."_s));
    EXPECT_EQ(m_model.statusText(), u"\"gone.mkv\" couldn't be opened."_s);
    ASSERT_TRUE(m_model.alert.value());
    EXPECT_EQ(m_model.alert.value()->title, u"Couldn't Read Chapters"_s);
    EXPECT_EQ(m_model.alert.value()->message,
              u"\"gone.mkv\" couldn't be opened.\n\n"
              u"Check the file still exists and that you have permission to read it."_s);
    EXPECT_EQ(m_model.inputFileURL.value(), m_fixture.url(u"gone.mkv"_s));
}

TEST_F(SourceLoading, TellsOfAFileWithoutChapters)
{
    test::writeFile(m_tools.path(u"reply.json"_s), ScriptedTools::replyFor({}));
    load(u"a.mkv"_s);
    EXPECT_EQ(m_model.currentState.value(), WorkflowState::error(u"\"a.mkv\" has no chapter markers."_s));
    EXPECT_EQ(m_model.alert.value().value().message,
              u"\"a.mkv\" has no chapter markers.\n\nTonearm splits a file at its chapter markers, so the "
              u"source needs them. Re-rip the disc with chapters preserved, or add them with a tool like "
              u"MKVToolNix."_s);
}

TEST_F(SourceLoading, TellsAFailureWithoutASuggestion)
{
    m_tools.setProbe("echo 'no good' >&2; exit 3");
    load(u"a.mkv"_s);
    const QString text = u"ffprobe exited with status 3.\n\nno good"_s;
    EXPECT_EQ(m_model.currentState.value(), WorkflowState::error(text));
    EXPECT_EQ(m_model.alert.value().value().message, text);
}

TEST_F(SourceLoading, TellsThatFfprobeIsMissing)
{
    const test::StandInTools none;
    ModelFixture fixture({.tools = none.location()});
    fixture.loadFile(m_fixture.path(u"a.mkv"_s));
    EXPECT_EQ(fixture->currentState.value(), WorkflowState::error(u"ffprobe could not be found."_s));
    EXPECT_EQ(fixture->alert.value().value().title, u"Couldn't Read Chapters"_s);
}

TEST_F(SourceLoading, ReplacesTheAlertOfAnEarlierFailure)
{
    load(u"gone.mkv"_s);
    const std::optional<AlertContent> first = m_model.alert.value();
    load(u"gone.mkv"_s);
    EXPECT_NE(m_model.alert.value(), first);
}

TEST_F(SourceLoading, EmptiesTheChaptersWhenAReloadFails)
{
    load(u"a.mkv"_s);
    load(u"gone.mkv"_s);
    EXPECT_TRUE(m_model.chapters.value().isEmpty());
    EXPECT_FALSE(m_model.sourceAudio.value());
}

TEST_F(SourceLoading, KeepsWhatWasTypedForTheAlbum)
{
    m_model.artist = u"The Artist"_s;
    m_model.discTotal = u"2"_s;
    load(u"a.mkv"_s);
    EXPECT_EQ(m_model.artist.value(), u"The Artist"_s);
    EXPECT_EQ(m_model.discTotal.value(), u"2"_s);
}

TEST_F(SourceLoading, SweepsAFinishedJobAwayCompletely)
{
    load(u"a.mkv"_s);
    test::fillLeftovers(m_model);
    test::fillFinishedJob(m_model);
    EXPECT_TRUE(m_model.acceptDroppedFile(m_fixture.url(u"b.mkv"_s)));
    EXPECT_FALSE(m_model.pendingSourceChange.value());
    test::expectNoFinishedJob(m_model);
    test::expectNoLeftovers(m_model);
    EXPECT_EQ(m_model.inputFileURL.value(), m_fixture.url(u"b.mkv"_s));
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::extractingChapters));
}

TEST_F(SourceLoading, GivesTheTitlesOfTheSourceBack)
{
    load(u"a.mkv"_s);
    const QList<ChapterInfo> original = m_model.chapters.value();
    m_model.setMappedTitle(1, u"Zwei"_s);
    EXPECT_EQ(m_model.chapters.value()[1].mappedTitle, u"Zwei"_s);
    EXPECT_EQ(m_model.chapters.value()[1].originalTitle, u"Two"_s);
    EXPECT_EQ(m_model.chapters.value()[0], original[0]);
    m_model.resetToSourceTitles();
    EXPECT_EQ(m_model.chapters.value(), original);
}

TEST_F(SourceLoading, IgnoresTitlesOfChaptersThatArentThere)
{
    load(u"a.mkv"_s);
    const QList<ChapterInfo> original = m_model.chapters.value();
    for (const qsizetype index : {-1, 2, 1000})
        m_model.setMappedTitle(index, u"Late"_s);
    EXPECT_EQ(m_model.chapters.value(), original);
}

} // namespace tonearm
