// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Printing.h"
#include "workflow/EncodingCompletion.h"
#include "workflow/FFmpegStatus.h"
#include "workflow/PendingSourceChange.h"
#include "workflow/WorkflowState.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using Kind = WorkflowState::Kind;

TEST(WorkflowState, IsIdleUnlessToldOtherwise)
{
    EXPECT_EQ(WorkflowState().kind(), Kind::idle);
}

TEST(WorkflowState, IsEqualByKindAndErrorText)
{
    EXPECT_EQ(WorkflowState(Kind::encoding), WorkflowState(Kind::encoding));
    EXPECT_NE(WorkflowState(Kind::encoding), WorkflowState(Kind::complete));
    EXPECT_EQ(WorkflowState::error(u"A"_s), WorkflowState::error(u"A"_s));
    EXPECT_NE(WorkflowState::error(u"A"_s), WorkflowState::error(u"B"_s));
    EXPECT_NE(WorkflowState::error({}), WorkflowState(Kind::idle));
}

TEST(WorkflowState, KeepsTheTextOfAnError)
{
    EXPECT_EQ(WorkflowState::error(u"A"_s).kind(), Kind::error);
    EXPECT_EQ(WorkflowState::error(u"A"_s).errorText(), u"A"_s);
}

TEST(FFmpegStatus, IsEqualByCaseAndContent)
{
    FFmpegInstallation installation;
    installation.versionSummary = u"ffmpeg 5.1"_s;
    EXPECT_EQ(FFmpegStatus(installation), FFmpegStatus(installation));
    EXPECT_NE(FFmpegStatus(installation), FFmpegStatus(FFmpegInstallation()));
    EXPECT_NE(FFmpegStatus(FFmpegMissing{u"A"_s}), FFmpegStatus(FFmpegMissing{u"B"_s}));
    EXPECT_NE(FFmpegStatus(FFmpegMissing{}), FFmpegStatus(FFmpegChecking{}));
}

TEST(EncodingCompletion, SumsUpTheFiles)
{
    EncodingCompletion completion;
    EXPECT_EQ(completion.summary(), u"Encoded 0 tracks"_s);
    completion.fileCount = 1;
    EXPECT_EQ(completion.summary(), u"Encoded 1 track"_s);
    completion.fileCount = 12;
    EXPECT_EQ(completion.summary(), u"Encoded 12 tracks"_s);
}

TEST(EncodingCompletion, IsAnotherEachTimeItIsMade)
{
    const EncodingCompletion completion;
    EXPECT_EQ(completion, EncodingCompletion(completion));
    EXPECT_NE(completion, EncodingCompletion());
}

TEST(PendingSourceChange, AsksInTheWordsOfTheQuestion)
{
    PendingSourceChange change;
    change.source = QUrl::fromLocalFile(u"/films/100% [a] #1?.mkv"_s);
    change.summary = u"2 edited titles"_s;
    EXPECT_EQ(change.sourceName(), u"100% [a] #1?.mkv"_s);
    EXPECT_EQ(change.message(),
              u"Loading 100% [a] #1?.mkv will discard 2 edited titles. Nothing has been encoded yet."_s);
}

} // namespace tonearm
