// SPDX-License-Identifier: GPL-3.0-or-later
// Jobs whose output folder makes trouble.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"
#include "helpers/SmallDisk.h"
#include "helpers/Sources.h"
#include "workflow/ReadOnlyFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ReadOnlyFolder;
using test::ScriptedTools;
using test::SmallDisk;
using Kind = WorkflowState::Kind;

namespace {

constexpr auto cantMount = "mounting a disk isn't permitted here";

class OutputFolder : public testing::Test
{
protected:
    void run()
    {
        m_fixture.prepareJob(m_tools.source());
        m_fixture.runJob();
    }

    void expectFailure(const QString &description)
    {
        EXPECT_EQ(m_model.currentState.value(), WorkflowState::error(description));
        EXPECT_EQ(m_model.progressMessage.value(), u"Encoding failed."_s);
        EXPECT_EQ(m_model.alert.value().value().title, u"Encoding Failed"_s);
        EXPECT_EQ(m_model.alert.value().value().message,
                  description + u"\n\nChoose a different output folder."_s);
        EXPECT_FALSE(m_tools.hasStarted(1));
    }

    QString log()
    {
        return QString::fromUtf8(test::readFile(m_model.lastLogURL.value().value().toLocalFile()));
    }

    ScriptedTools m_tools{{{0, 1, u"One"_s}, {1, 2, u"Two"_s}}};
    ModelFixture m_fixture{{.tools = m_tools.location()}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(OutputFolder, IsMadeWithAllThatLeadsToIt)
{
    m_fixture.prepareJob(m_tools.source());
    m_model.outputFolderURL = m_fixture.url(u"a/b/c"_s);
    m_model.artist = u"The Artist"_s;
    m_fixture.runJob();
    EXPECT_TRUE(m_model.completion.value());
    EXPECT_TRUE(QFileInfo(m_fixture.path(u"a/b/c/The Artist/02-Two.flac"_s)).isFile());
}

TEST_F(OutputFolder, CantBeAFile)
{
    m_fixture.prepareJob(m_tools.source());
    test::writeFile(m_fixture.path(u"taken"_s), "in the way");
    m_model.outputFolderURL = m_fixture.url(u"taken"_s);
    m_fixture.runJob();
    expectFailure(u"The output folder \"taken\" couldn't be created."_s);
    EXPECT_FALSE(m_model.lastLogURL.value());
    EXPECT_EQ(test::readFile(m_fixture.path(u"taken"_s)), "in the way");
}

TEST_F(OutputFolder, CantLieInAFileEither)
{
    m_fixture.prepareJob(m_tools.source());
    m_model.artist = u"The Artist"_s;
    m_model.albumTitle = u"The Album"_s;
    test::writeFile(m_fixture.outputPath(u"The Artist"_s), "in the way");
    m_fixture.runJob();
    expectFailure(u"The output folder \"The Album\" couldn't be created."_s);
    // The log goes where it can.
    EXPECT_EQ(m_model.lastLogURL.value().value().adjusted(QUrl::RemoveFilename | QUrl::StripTrailingSlash),
              QUrl::fromLocalFile(m_fixture.outputPath()));
    EXPECT_TRUE(
        log().contains(u"Reason         The output folder \"The Album\" couldn't be created. Choose a "
                       u"different output folder.\n"_s));
    EXPECT_TRUE(log().contains(u"Files written  0 of 2\n"_s));
}

TEST_F(OutputFolder, HasToBeWritable)
{
    const ReadOnlyFolder folder(m_fixture.outputPath());
    if (!folder.isReadOnly())
        GTEST_SKIP() << cantMount;
    run();
    expectFailure(u"The output folder \"out\" isn't writable."_s);
    EXPECT_FALSE(m_model.lastLogURL.value());
}

TEST_F(OutputFolder, HasToLieInAWritableOne)
{
    const ReadOnlyFolder folder(m_fixture.outputPath());
    if (!folder.isReadOnly())
        GTEST_SKIP() << cantMount;
    m_model.albumTitle = u"The Album"_s;
    run();
    expectFailure(u"The output folder \"The Album\" couldn't be created."_s);
    EXPECT_FALSE(m_model.lastLogURL.value());
}

TEST_F(OutputFolder, KeepsTheJobsFilesWhenTheLogCantBeWritten)
{
    m_tools.setEncoding(R"(echo sound > "$output"
        if [ "$track" = 2 ]; then rm -r "${output%/*}"; echo taken > "${output%/*}"; fi)");
    run();
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::complete));
    EXPECT_EQ(m_model.completion.value().value().fileCount, 2);
    EXPECT_FALSE(m_model.alert.value());
    EXPECT_FALSE(m_model.lastLogURL.value());
    EXPECT_FALSE(m_model.hasLogFile());
    m_model.revealLog();
    EXPECT_EQ(m_fixture.fileViewer().selections(), (QList<QList<QUrl>>{m_model.encodedFiles.value()}));
}

TEST_F(OutputFolder, LosesAnEarlierLogWhenTheNextCantBeWritten)
{
    run();
    EXPECT_TRUE(m_model.hasLogFile());
    test::writeFile(m_fixture.path(u"taken"_s), "in the way");
    m_model.outputFolderURL = m_fixture.url(u"taken"_s);
    m_fixture.runJob();
    EXPECT_FALSE(m_model.lastLogURL.value());
}

namespace {

// The FLAC of the second chapter is larger than what ffmpeg keeps back until the end.
QString wideSource()
{
    return test::sharedSource(u"wide"_s, {.audioCodec = test::codec::pcm24(),
                                          .sampleRate = 96000,
                                          .duration = 3,
                                          .chapters = {{0, 0.2, u"One"_s}, {0.2, 3, u"Two"_s}}});
}

// A job with real sound on a disk that isn't large enough for it.
class FullDisk : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!m_disk.isMounted())
            GTEST_SKIP() << cantMount;
    }

    ModelFixture m_fixture;
    SmallDisk m_disk{m_fixture.outputPath(), 256};
    QString m_source = wideSource();
};

} // namespace

TEST_F(FullDisk, EndsTheJobAndLeavesNoPartOfATrack)
{
    m_fixture.prepareJob(m_source);
    m_fixture.runJob();
    EXPECT_EQ(m_fixture->currentState.value().kind(), Kind::error);
    EXPECT_THAT(m_fixture->statusText().toStdString(),
                testing::StartsWith("ffmpeg exited with status 1.\n\n"));
    EXPECT_THAT(m_fixture->statusText().toStdString(), testing::HasSubstr("No space left on device"));
    EXPECT_EQ(m_fixture->alert.value().value().title, u"Encoding Failed"_s);
    // Without the part there is room for the log.
    EXPECT_EQ(test::namesIn(m_fixture.outputPath()),
              (QStringList{u"01-One.flac"_s, m_fixture->lastLogURL.value().value().fileName()}));
    EXPECT_EQ(test::decodedAudio(m_fixture.outputPath(u"01-One.flac"_s)), test::bareCut(m_source, {0, 0.2}));
}

TEST_F(FullDisk, LeavesNothingOfALogThatDoesntFit)
{
    ScriptedTools tools({{0, 1, u"One"_s}});
    tools.setEncoding(R"(echo sound > "$output"
                         dd if=/dev/zero of="${output%/*}/filling" bs=1k 2> /dev/null; exit 0)");
    ModelFixture fixture({.tools = tools.location()});
    fixture.prepareJob(tools.source());
    fixture->outputFolderURL = QUrl::fromLocalFile(m_fixture.outputPath());
    fixture.runJob();
    EXPECT_EQ(fixture->currentState.value(), WorkflowState(Kind::complete));
    EXPECT_FALSE(fixture->lastLogURL.value());
    EXPECT_EQ(test::namesIn(m_fixture.outputPath()), (QStringList{u"01-One.flac"_s, u"filling"_s}));
}

TEST(FullDevice, EndsTheJobWithoutAMountedDiskToo)
{
    // A file that is always full, in the place of the output.
    ModelFixture fixture;
    fixture.prepareJob(wideSource());
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, fixture.outputPath(u"02-Two.flac"_s)));
    fixture->startEncoding();
    fixture.settle();
    fixture->confirmOverwrite();
    fixture.waitForJobEnd();
    EXPECT_EQ(fixture->currentState.value().kind(), Kind::error);
    EXPECT_THAT(fixture->statusText().toStdString(), testing::HasSubstr("No space left on device"));
    EXPECT_EQ(test::namesIn(fixture.outputPath()),
              (QStringList{u"01-One.flac"_s, fixture->lastLogURL.value().value().fileName()}));
}

} // namespace tonearm
