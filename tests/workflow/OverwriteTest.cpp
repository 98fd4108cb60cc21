// SPDX-License-Identifier: GPL-3.0-or-later
// The question before a job that would overwrite files.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QSemaphore>
#include <QThreadPool>
#include <QtConcurrentRun>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ChapterMark;
using test::ModelFixture;
using test::ScriptedTools;

namespace {

// A job of eight chapters.
class Overwrite : public testing::Test
{
protected:
    static QList<ChapterMark> chapters()
    {
        QList<ChapterMark> result;
        for (int index = 0; index < 8; ++index)
            result.append({double(index), index + 1.0, u"Song %1"_s.arg(index + 1)});
        return result;
    }

    void SetUp() override { m_fixture.prepareJob(m_tools.source()); }

    // Puts files of these numbers where the job will write.
    void makeOlder(const QList<int> &numbers)
    {
        const QString folder = m_model.destinationFolder().value().toLocalFile();
        ASSERT_TRUE(QDir().mkpath(folder));
        for (const int number : numbers)
            test::writeFile(folder + u"/0%1-Song-%1.flac"_s.arg(number), "older");
    }

    void ask()
    {
        m_model.startEncoding();
        m_fixture.settle();
        ASSERT_TRUE(m_model.pendingOverwrite.value());
        ASSERT_FALSE(m_model.encodingTask.value());
    }

    // What the job would have overwritten is as it was, and no job has begun.
    void expectNothingHappened()
    {
        m_fixture.settle();
        EXPECT_FALSE(m_model.encodingTask.value());
        EXPECT_FALSE(m_model.pendingOverwrite.value());
        EXPECT_FALSE(m_model.alert.value());
        EXPECT_FALSE(m_tools.hasStarted(1));
        EXPECT_EQ(m_model.currentState.value(), WorkflowState(WorkflowState::Kind::awaitingUserMapping));
    }

    ScriptedTools m_tools{chapters()};
    ModelFixture m_fixture{{.tools = m_tools.location()}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(Overwrite, IsAskedAboutEachFileThatIsThere)
{
    for (const QList<int> &numbers :
         {QList{3}, QList{1, 2, 3, 4, 8}, QList{1, 2, 3, 4, 5, 6}, QList{1, 2, 3, 4, 5, 6, 7, 8}}) {
        ASSERT_NO_FATAL_FAILURE(makeOlder(numbers));
        QStringList names;
        for (const int number : numbers)
            names.append(u"0%1-Song-%1.flac"_s.arg(number));
        ASSERT_NO_FATAL_FAILURE(ask());
        const PendingOverwrite question = m_model.pendingOverwrite.value().value();
        EXPECT_EQ(question.filenames, names);
        EXPECT_EQ(question.folder, QUrl::fromLocalFile(m_fixture.outputPath()));
        m_model.pendingOverwrite = std::nullopt;
        QDir(m_fixture.outputPath()).removeRecursively();
    }
}

TEST_F(Overwrite, TellsFiveOfEightNames)
{
    ASSERT_NO_FATAL_FAILURE(makeOlder({1, 2, 3, 4, 5, 6, 7, 8}));
    ASSERT_NO_FATAL_FAILURE(ask());
    const PendingOverwrite question = m_model.pendingOverwrite.value().value();
    EXPECT_EQ(question.title(), u"Replace 8 existing files?"_s);
    EXPECT_EQ(question.message(),
              u"\"out\" already contains the files:\n\n"
              u"01-Song-1.flac\n02-Song-2.flac\n03-Song-3.flac\n04-Song-4.flac\n05-Song-5.flac\n\n"
              u"…and 3 more. Encoding will overwrite them."_s);
}

TEST_F(Overwrite, ChangesNothingWhileItIsAsked)
{
    ASSERT_NO_FATAL_FAILURE(makeOlder({2}));
    m_model.encodedFiles = QList{m_fixture.url(u"old.flac"_s)};
    ASSERT_NO_FATAL_FAILURE(ask());
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(WorkflowState::Kind::awaitingUserMapping));
    EXPECT_EQ(m_model.statusText(), u"Found 8 chapters."_s);
    EXPECT_EQ(m_model.encodedFiles.value().size(), 1);
}

TEST_F(Overwrite, IsNotAskedAboutFilesOfOtherNames)
{
    test::writeFile(m_fixture.outputPath(u"02-Song-1.flac"_s), "other");
    test::writeFile(m_fixture.outputPath(u"01-song-1.flac"_s), "other");
    m_fixture.runJob();
    EXPECT_TRUE(m_model.completion.value());
    EXPECT_EQ(test::readFile(m_fixture.outputPath(u"02-Song-1.flac"_s)), "other");
}

TEST_F(Overwrite, StartsNothingWhenDeclined)
{
    ASSERT_NO_FATAL_FAILURE(makeOlder({2}));
    ASSERT_NO_FATAL_FAILURE(ask());
    m_model.pendingOverwrite = std::nullopt;
    m_model.confirmOverwrite();
    expectNothingHappened();
    EXPECT_EQ(test::readFile(m_fixture.outputPath(u"02-Song-2.flac"_s)), "older");
}

TEST_F(Overwrite, ReplacesTheFilesWhenConfirmed)
{
    ASSERT_NO_FATAL_FAILURE(makeOlder({2}));
    ASSERT_NO_FATAL_FAILURE(ask());
    m_model.confirmOverwrite();
    EXPECT_FALSE(m_model.pendingOverwrite.value());
    m_fixture.waitForJobEnd();
    EXPECT_EQ(m_model.completion.value().value().fileCount, 8);
    EXPECT_EQ(test::readFile(m_fixture.outputPath(u"02-Song-2.flac"_s)), "sound\n");
}

TEST_F(Overwrite, IsAskedAgainByTheNextJob)
{
    m_fixture.runJob();
    ASSERT_NO_FATAL_FAILURE(ask());
    EXPECT_EQ(m_model.pendingOverwrite.value()->filenames.size(), 8);
}

TEST_F(Overwrite, StartsNothingOnceTheAlbumLeadsElsewhere)
{
    m_model.albumTitle = u"The Album"_s;
    ASSERT_NO_FATAL_FAILURE(makeOlder({2}));
    ASSERT_NO_FATAL_FAILURE(ask());
    m_model.albumTitle = u"Another"_s;
    m_model.confirmOverwrite();
    expectNothingHappened();
}

TEST_F(Overwrite, StartsNothingOnceTheFilesAreOrganizedOtherwise)
{
    m_model.albumTitle = u"The Album"_s;
    ASSERT_NO_FATAL_FAILURE(makeOlder({2}));
    ASSERT_NO_FATAL_FAILURE(ask());
    m_fixture.settings().setOrganizeIntoArtistAlbumFolders(false);
    m_model.confirmOverwrite();
    expectNothingHappened();
}

TEST_F(Overwrite, StartsAllTheSameWhenOnlyTheFoldersSpellingStays)
{
    m_model.albumTitle = u"The Album"_s;
    ASSERT_NO_FATAL_FAILURE(makeOlder({2}));
    ASSERT_NO_FATAL_FAILURE(ask());
    m_model.albumTitle = u" The Album. "_s;
    m_model.confirmOverwrite();
    m_fixture.waitForJobEnd();
    EXPECT_TRUE(m_model.completion.value());
}

TEST_F(Overwrite, StartsNothingOnceATitleIsMissing)
{
    ASSERT_NO_FATAL_FAILURE(makeOlder({2}));
    ASSERT_NO_FATAL_FAILURE(ask());
    m_model.setMappedTitle(5, u"  "_s);
    m_model.confirmOverwrite();
    expectNothingHappened();
}

TEST_F(Overwrite, StartsNothingOnceTheToolsCountAsMissing)
{
    ASSERT_NO_FATAL_FAILURE(makeOlder({2}));
    ASSERT_NO_FATAL_FAILURE(ask());
    m_model.ffmpegStatus = FFmpegMissing{u"gone"_s};
    m_model.confirmOverwrite();
    expectNothingHappened();
}

TEST_F(Overwrite, FailsWhenTheToolsAreGoneUnnoticed)
{
    ASSERT_NO_FATAL_FAILURE(makeOlder({1}));
    ASSERT_NO_FATAL_FAILURE(ask());
    ASSERT_TRUE(QFile::remove(m_tools.path(u"bin/ffmpeg"_s)));
    m_model.confirmOverwrite();
    m_fixture.waitForJobEnd();
    EXPECT_EQ(m_model.currentState.value(), WorkflowState::error(u"ffmpeg could not be found."_s));
    EXPECT_EQ(test::readFile(m_fixture.outputPath(u"01-Song-1.flac"_s)), "older");
}

TEST_F(Overwrite, StartsNothingOnceTheSourceIsAnother)
{
    ASSERT_NO_FATAL_FAILURE(makeOlder({2}));
    ASSERT_NO_FATAL_FAILURE(ask());
    m_model.loadFile(m_fixture.url(u"other.mkv"_s));
    m_model.confirmOverwrite();
    EXPECT_FALSE(m_model.encodingTask.value());
    EXPECT_FALSE(m_tools.hasStarted(1));
}

TEST_F(Overwrite, IsNotPossibleWhileNothingIsAsked)
{
    m_model.confirmOverwrite();
    expectNothingHappened();
}

namespace {

// A folder at which the model is still looking, until release().
class SlowFolder : public Overwrite
{
protected:
    void SetUp() override
    {
        Overwrite::SetUp();
        m_threadsBefore = pool().maxThreadCount();
        pool().setMaxThreadCount(1);
        m_blocker = QtConcurrent::run([this] { m_gate.acquire(); });
    }

    void TearDown() override
    {
        release();
        pool().setMaxThreadCount(m_threadsBefore);
    }

    void startLooking()
    {
        m_model.startEncoding();
        QCoreApplication::processEvents();
    }

    void release()
    {
        m_gate.release();
        m_fixture.settle();
    }

private:
    static QThreadPool &pool() { return *QThreadPool::globalInstance(); }

    QSemaphore m_gate;
    QFuture<void> m_blocker;
    int m_threadsBefore = 0;
};

} // namespace

TEST_F(SlowFolder, IsLookedAtAgainForTitlesThatWereEditedMeanwhile)
{
    ASSERT_NO_FATAL_FAILURE(makeOlder({7}));
    m_model.setMappedTitle(6, u"Another"_s);
    startLooking();
    m_model.setMappedTitle(6, u"Song 7"_s);
    release();
    EXPECT_FALSE(m_model.encodingTask.value());
    ASSERT_TRUE(m_model.pendingOverwrite.value());
    EXPECT_EQ(m_model.pendingOverwrite.value()->filenames, QStringList{u"07-Song-7.flac"_s});
}

TEST_F(SlowFolder, IsAskedAboutOnceHoweverOftenTheButtonIsPressed)
{
    ASSERT_NO_FATAL_FAILURE(makeOlder({7}));
    int questions = 0;
    const auto onQuestion = m_model.pendingOverwrite.addNotifier([&] { ++questions; });
    startLooking();
    startLooking();
    release();
    EXPECT_TRUE(m_model.pendingOverwrite.value());
    EXPECT_EQ(questions, 1);
}

TEST_F(SlowFolder, StartsNothingOnceTheAlbumLeadsElsewhere)
{
    startLooking();
    m_model.artist = u"The Artist"_s;
    release();
    expectNothingHappened();
}

TEST_F(SlowFolder, StartsNothingForASourceThatCameMeanwhile)
{
    startLooking();
    const QList<ChapterInfo> chapters = m_model.chapters.value();
    m_model.inputFileURL = m_fixture.url(u"other.mkv"_s);
    m_model.chapters = chapters;
    release();
    expectNothingHappened();
}

TEST_F(SlowFolder, StartsNothingOnceTheToolsCountAsMissing)
{
    startLooking();
    m_model.ffmpegStatus = FFmpegMissing{u"gone"_s};
    release();
    expectNothingHappened();
}

TEST_F(Overwrite, IsAskedAboutAgainWhenTheTitlesHaveChangedBehindTheQuestion)
{
    ASSERT_NO_FATAL_FAILURE(makeOlder({3}));
    ASSERT_NO_FATAL_FAILURE(ask());
    ASSERT_NO_FATAL_FAILURE(makeOlder({5}));
    m_model.setMappedTitle(0, u"Other"_s);
    m_model.confirmOverwrite();
    m_fixture.settle();
    ASSERT_TRUE(m_model.pendingOverwrite.value());
    EXPECT_EQ(m_model.pendingOverwrite.value()->filenames,
              (QStringList{u"03-Song-3.flac"_s, u"05-Song-5.flac"_s}));
    EXPECT_FALSE(m_model.encodingTask.value());
}

} // namespace tonearm
