// SPDX-License-Identifier: GPL-3.0-or-later
// A job that goes well: what it leaves in the model and in the folder.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"
#include "helpers/Sources.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ScriptedTools;
using Kind = WorkflowState::Kind;

namespace {

void describeAlbum(AppModel &model)
{
    model.artist = u" The Artist "_s;
    model.albumTitle = u"The Album"_s;
    model.albumYear = u"c. 1999-03"_s;
    model.genre = u"Rock"_s;
    model.discNumber = u"02"_s;
    model.discTotal = u"Disc 3"_s;
}

class ScriptedJob : public testing::Test
{
protected:
    void SetUp() override { m_fixture.prepareJob(m_tools.source()); }

    ScriptedTools m_tools{{{0, 1.5, u"One"_s}, {1.5, 4, u"Two"_s}}};
    ModelFixture m_fixture{{.tools = m_tools.location()}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST(Job, WritesExactlyTheTagsOfTheAlbum)
{
    ModelFixture fixture;
    fixture.prepareJob(test::plainSource());
    describeAlbum(fixture.model());
    fixture.runJob();
    EXPECT_EQ(test::tagsWithoutEncoder(fixture.outputPath(u"The Artist/The Album/02-Two.flac"_s)),
              (QStringList{u"ALBUMARTIST=The Artist"_s, u"DISCNUMBER=2"_s, u"DISCTOTAL=3"_s,
                           u"TRACKNUMBER=2"_s, u"TRACKTOTAL=2"_s, u"album=The Album"_s,
                           u"artist=The Artist"_s, u"date=1999"_s, u"genre=Rock"_s, u"title=Two"_s}));
}

TEST(Job, KeepsTheSourcesOwnTagsWhereItHasNone)
{
    const QString source =
        test::sharedSource(u"tagged"_s, {.duration = 1,
                                         .chapters = {{0, 1, u"One"_s}},
                                         .metadata = {u"title=Movie"_s, u"album=Other"_s, u"MINE=x"_s}});
    ModelFixture fixture;
    fixture.prepareJob(source);
    fixture->artist = u"The Artist"_s;
    fixture.settings().setOrganizeIntoArtistAlbumFolders(false);
    fixture.runJob();
    EXPECT_EQ(test::tagsWithoutEncoder(fixture.outputPath(u"01-One.flac"_s)),
              (QStringList{u"ALBUM=Other"_s, u"ALBUMARTIST=The Artist"_s, u"MINE=x"_s, u"TRACKNUMBER=1"_s,
                           u"TRACKTOTAL=1"_s, u"artist=The Artist"_s, u"title=One"_s}));
}

TEST_F(ScriptedJob, BeginsFromAnEmptySlate)
{
    m_tools.setEncoding(ScriptedTools::waiting("go"));
    m_model.encodedFiles = QList{m_fixture.url(u"old.flac"_s)};
    m_model.encodingProgress = 0.5;
    m_model.lastOutputFolder = m_fixture.url(u"old"_s);
    m_model.lastLogURL = m_fixture.url(u"old.log"_s);
    const EncodingCompletion earlier;
    m_model.completion = earlier;
    QString message;
    const auto onStart =
        m_model.encodingTask.onValueChanged([&] { message = m_model.progressMessage.value(); });
    m_model.startEncoding();
    ASSERT_NO_FATAL_FAILURE(m_fixture.waitForJobStart());
    EXPECT_EQ(message, u"Starting…"_s);
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::encoding));
    EXPECT_EQ(m_model.encodingProgress.value(), 0.0);
    EXPECT_TRUE(m_model.encodedFiles.value().isEmpty());
    EXPECT_EQ(m_model.lastOutputFolder.value(), m_fixture.url(u"old"_s));
    EXPECT_EQ(m_model.lastLogURL.value(), m_fixture.url(u"old.log"_s));
    EXPECT_EQ(m_model.completion.value(), earlier);
    EXPECT_FALSE(m_model.canEncode());
}

TEST_F(ScriptedJob, EndsWithASummary)
{
    m_fixture.runJob();
    const QList<QUrl> files = {QUrl::fromLocalFile(m_fixture.outputPath(u"01-One.flac"_s)),
                               QUrl::fromLocalFile(m_fixture.outputPath(u"02-Two.flac"_s))};
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::complete));
    EXPECT_EQ(m_model.statusText(), u"Encoded 2 tracks to out."_s);
    EXPECT_EQ(m_model.encodingProgress.value(), 1.0);
    EXPECT_EQ(m_model.encodedFiles.value(), files);
    EXPECT_EQ(m_model.lastOutputFolder.value(), QUrl::fromLocalFile(m_fixture.outputPath()));
    EXPECT_EQ(m_model.completion.value().value().fileCount, 2);
    EXPECT_FALSE(m_model.alert.value());
    EXPECT_FALSE(m_model.encodingTask.value());
    EXPECT_TRUE(m_model.canEncode());
}

TEST_F(ScriptedJob, LeavesTheSourceAndTheAlbumAsTheyAre)
{
    describeAlbum(m_model);
    const QList<ChapterInfo> chapters = m_model.chapters.value();
    m_fixture.runJob();
    EXPECT_EQ(m_model.chapters.value(), chapters);
    EXPECT_EQ(m_model.inputFileURL.value(), QUrl::fromLocalFile(m_tools.source()));
    EXPECT_EQ(m_model.artist.value(), u" The Artist "_s);
    EXPECT_EQ(m_model.outputFolderURL.value(), QUrl::fromLocalFile(m_fixture.outputPath()));
}

TEST_F(ScriptedJob, CountsOneTrackInTheSingular)
{
    m_model.chapters = m_model.chapters.value().first(1);
    m_fixture.runJob();
    EXPECT_EQ(m_model.statusText(), u"Encoded 1 track to out."_s);
    EXPECT_EQ(m_model.completion.value().value().summary(), u"Encoded 1 track"_s);
}

TEST_F(ScriptedJob, LeavesTheFilesAndTheLogInAFolderThatItMakes)
{
    describeAlbum(m_model);
    m_fixture.runJob();
    EXPECT_EQ(m_model.statusText(), u"Encoded 2 tracks to The Album."_s);
    EXPECT_EQ(test::namesIn(m_fixture.outputPath()), QStringList{u"The Artist"_s});
    EXPECT_EQ(test::namesIn(m_fixture.outputPath(u"The Artist"_s)), QStringList{u"The Album"_s});
    EXPECT_EQ(
        test::namesIn(m_fixture.outputPath(u"The Artist/The Album"_s)),
        (QStringList{u"01-One.flac"_s, u"02-Two.flac"_s, m_model.lastLogURL.value().value().fileName()}));
}

TEST_F(ScriptedJob, GivesFfmpegTheWholeCommandLine)
{
    describeAlbum(m_model);
    m_fixture.runJob();
    EXPECT_EQ(m_tools.argumentsOfTrack(2),
              (QStringList{u"-hide_banner"_s,
                           u"-v"_s,
                           u"error"_s,
                           u"-progress"_s,
                           u"pipe:2"_s,
                           u"-nostats"_s,
                           u"-accurate_seek"_s,
                           u"-ss"_s,
                           u"1.500000"_s,
                           u"-i"_s,
                           m_tools.source(),
                           u"-t"_s,
                           u"2.500000"_s,
                           u"-map"_s,
                           u"0:a:0"_s,
                           u"-vn"_s,
                           u"-c:a"_s,
                           u"flac"_s,
                           u"-metadata"_s,
                           u"track=2"_s,
                           u"-metadata"_s,
                           u"TRACKTOTAL=2"_s,
                           u"-metadata"_s,
                           u"disc=2"_s,
                           u"-metadata"_s,
                           u"DISCTOTAL=3"_s,
                           u"-metadata"_s,
                           u"title=Two"_s,
                           u"-metadata"_s,
                           u"artist=The Artist"_s,
                           u"-metadata"_s,
                           u"album_artist=The Artist"_s,
                           u"-metadata"_s,
                           u"album=The Album"_s,
                           u"-metadata"_s,
                           u"date=1999"_s,
                           u"-metadata"_s,
                           u"genre=Rock"_s,
                           u"-y"_s,
                           m_fixture.outputPath(u"The Artist/The Album/02-Two.flac"_s)}));
}

TEST_F(ScriptedJob, NeverRunsTwoTracksAtOnce)
{
    m_tools.setEncoding(R"(mkdir "$here/busy" || touch "$here/overlap"
                           sleep 0.02; rmdir "$here/busy"; echo sound > "$output")");
    m_fixture.runJob();
    EXPECT_TRUE(m_model.completion.value());
    EXPECT_FALSE(test::namesIn(m_tools.path()).contains(u"overlap"_s));
}

TEST_F(ScriptedJob, IsTheOnlyOne)
{
    m_tools.setEncoding(ScriptedTools::waiting("go") + "echo run >> \"$here/runs\"");
    m_model.startEncoding();
    m_model.startEncoding();
    ASSERT_NO_FATAL_FAILURE(m_fixture.waitForJobStart());
    m_model.startEncoding();
    m_fixture.settle();
    m_tools.release(u"go"_s);
    m_fixture.waitForJobEnd();
    m_fixture.settle();
    EXPECT_FALSE(m_model.encodingTask.value());
    EXPECT_EQ(test::readFile(m_tools.path(u"runs"_s)), "run\nrun\n");
}

TEST_F(ScriptedJob, CanBeRunAgain)
{
    m_fixture.runJob();
    const std::optional<EncodingCompletion> first = m_model.completion.value();
    m_model.setMappedTitle(0, u"Eins"_s);
    m_model.setMappedTitle(1, u"Zwei"_s);
    m_fixture.runJob();
    EXPECT_NE(m_model.completion.value(), first);
    EXPECT_EQ(m_model.encodedFiles.value().size(), 2);
    EXPECT_EQ(m_model.encodedFiles.value()[0].fileName(), u"01-Eins.flac"_s);
}

namespace {

struct JobEnd
{
    std::string name;
    QByteArray encoding;
    Kind state;
    QString message;
};

class EndOfJob : public testing::TestWithParam<JobEnd>
{
};

} // namespace

TEST_P(EndOfJob, WritesTheLogThenTellsAndGoesLast)
{
    ScriptedTools tools;
    tools.setEncoding(GetParam().encoding);
    ModelFixture fixture({.tools = tools.location()});
    fixture.prepareJob(tools.source());
    bool hadLogWhenItTold = false;
    std::optional<WorkflowState> stateAtItsEnd;
    QString messageAtItsEnd;
    const auto onState = fixture->currentState.onValueChanged([&] {
        if (fixture->currentState.value() == WorkflowState(Kind::encoding))
            return;
        hadLogWhenItTold = fixture->hasLogFile() && fixture->encodingTask.value();
    });
    const auto onTask = fixture->encodingTask.onValueChanged([&] {
        stateAtItsEnd = fixture->currentState.value();
        messageAtItsEnd = fixture->progressMessage.value();
    });
    const auto onProgress = fixture->progressMessage.onValueChanged([&] {
        if (GetParam().state == Kind::idle && fixture->progressMessage.value().startsWith(u"Encoding 1"_s))
            fixture->cancelEncoding();
    });
    fixture.runJob();
    EXPECT_TRUE(hadLogWhenItTold);
    EXPECT_EQ(stateAtItsEnd.value().kind(), GetParam().state);
    EXPECT_EQ(messageAtItsEnd, GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Outcomes, EndOfJob,
    testing::Values(JobEnd{"Finished", "true", Kind::complete, u"Encoded 1 track to out."_s},
                    JobEnd{"Cancelled", "exec sleep 600", Kind::idle, u"Encoding cancelled."_s},
                    JobEnd{"Failed", "exit 1", Kind::error, u"Encoding failed."_s}),
    [](const auto &outcome) { return outcome.param.name; });

} // namespace tonearm
