// SPDX-License-Identifier: GPL-3.0-or-later
// What the window does with a file that is dropped on it, and with its open panels.
#include "helpers/Await.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ScriptedTools;

namespace {

class DroppedFile : public testing::TestWithParam<QString>
{
};

class RefusedFile : public testing::TestWithParam<QString>
{
};

// Puts a file's name in the place of the parameter's number.
template <typename Info> std::string numbered(const Info &info)
{
    return std::to_string(info.index);
}

} // namespace

TEST_P(DroppedFile, IsTaken)
{
    const ScriptedTools tools;
    ModelFixture fixture({.tools = tools.location()});
    const QUrl file = fixture.url(GetParam());
    EXPECT_TRUE(fixture->acceptDroppedFile(file));
    EXPECT_EQ(fixture->inputFileURL.value(), file);
    EXPECT_EQ(fixture->currentState.value(), WorkflowState(WorkflowState::Kind::extractingChapters));
    EXPECT_FALSE(fixture->alert.value());
}

INSTANTIATE_TEST_SUITE_P(Names, DroppedFile,
                         testing::Values(u"movie.mkv"_s, u"MOVIE.MKV"_s, u"a.b.Mkv"_s, u"50% #1?.mkv"_s,
                                         u" .mkv"_s, u"日本.mkv"_s),
                         numbered<testing::TestParamInfo<QString>>);

TEST_P(RefusedFile, IsToldInAnAlert)
{
    ModelFixture fixture;
    EXPECT_FALSE(fixture->acceptDroppedFile(fixture.url(GetParam())));
    EXPECT_FALSE(fixture->inputFileURL.value());
    EXPECT_EQ(fixture->currentState.value(), WorkflowState());
    ASSERT_TRUE(fixture->alert.value());
    EXPECT_EQ(fixture->alert.value()->title, u"Unsupported File"_s);
    EXPECT_EQ(fixture->alert.value()->message, u"\"%1\" isn't a Matroska (.mkv) file."_s.arg(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Names, RefusedFile,
                         testing::Values(u"movie.mka"_s, u"movie.mp4"_s, u"mkv"_s, u".mkv"_s, u"movie"_s,
                                         u"movie.mkv "_s, u"50% %1 #1?.flac"_s),
                         numbered<testing::TestParamInfo<QString>>);

TEST(RefusedDrop, NamesAFolderToo)
{
    ModelFixture fixture;
    EXPECT_FALSE(fixture->acceptDroppedFile(QUrl::fromLocalFile(u"/music/album/"_s)));
    ASSERT_TRUE(fixture->alert.value());
    EXPECT_EQ(fixture->alert.value()->message, u"\"album\" isn't a Matroska (.mkv) file."_s);
}

TEST(RefusedDrop, ReplacesAnAlertThatWaits)
{
    ModelFixture fixture;
    fixture->acceptDroppedFile(fixture.url(u"a.mp3"_s));
    const std::optional<AlertContent> first = fixture->alert.value();
    fixture->acceptDroppedFile(fixture.url(u"a.mp3"_s));
    EXPECT_NE(fixture->alert.value(), first);
}

TEST(RefusedDrop, LeavesTheSourceThatIsThere)
{
    ModelFixture fixture;
    const QUrl file = fixture.url(u"a.mkv"_s);
    fixture->inputFileURL = file;
    fixture->currentState = WorkflowState::Kind::awaitingUserMapping;
    fixture->acceptDroppedFile(fixture.url(u"b.txt"_s));
    EXPECT_EQ(fixture->inputFileURL.value(), file);
    EXPECT_EQ(fixture->currentState.value(), WorkflowState(WorkflowState::Kind::awaitingUserMapping));
}

TEST(InputPanel, OffersOneMatroskaFile)
{
    const ScriptedTools tools;
    ModelFixture fixture({.tools = tools.location()});
    fixture.panels().prepareAnswer(fixture.url(u"a.mkv"_s));
    fixture->chooseInputFile();
    EXPECT_TRUE(test::eventually([&] { return fixture->inputFileURL.value().has_value(); }));
    EXPECT_EQ(fixture->inputFileURL.value(), fixture.url(u"a.mkv"_s));
    const OpenPanelRequest expected = {.title = u"Select Input File"_s,
                                       .prompt = u"Choose"_s,
                                       .target = OpenPanelRequest::Target::file,
                                       .extensions = {u"mkv"_s}};
    EXPECT_EQ(fixture.panels().requests(), QList{expected});
}

TEST(InputPanel, ChangesNothingWhenDismissed)
{
    ModelFixture fixture;
    fixture->chooseInputFile();
    ASSERT_TRUE(test::eventually([&] { return fixture.panels().openCount() == 1; }));
    fixture.panels().answer(std::nullopt);
    ASSERT_TRUE(test::eventually([&] { return fixture.panels().openCount() == 0; }));
    EXPECT_FALSE(fixture->inputFileURL.value());
    EXPECT_EQ(fixture->currentState.value(), WorkflowState());
    EXPECT_FALSE(fixture->alert.value());
}

TEST(OutputPanel, OffersFolders)
{
    ModelFixture fixture;
    fixture.panels().prepareAnswer(fixture.url(u"music"_s));
    fixture->chooseOutputFolder();
    EXPECT_TRUE(test::eventually([&] { return fixture->outputFolderURL.value().has_value(); }));
    EXPECT_EQ(fixture->outputFolderURL.value(), fixture.url(u"music"_s));
    const OpenPanelRequest expected = {.title = u"Select Output Folder"_s,
                                       .prompt = u"Choose"_s,
                                       .target = OpenPanelRequest::Target::folder};
    EXPECT_EQ(fixture.panels().requests(), QList{expected});
}

TEST(OutputPanel, ChangesNothingWhenDismissed)
{
    ModelFixture fixture;
    fixture->outputFolderURL = fixture.url(u"music"_s);
    fixture.panels().prepareAnswer(std::nullopt);
    fixture->chooseOutputFolder();
    ASSERT_TRUE(test::eventually([&] { return fixture.panels().requests().size() == 1; }));
    fixture.settle();
    EXPECT_EQ(fixture->outputFolderURL.value(), fixture.url(u"music"_s));
}

} // namespace tonearm
