// SPDX-License-Identifier: GPL-3.0-or-later
// Jobs on files whose chapters are few, many, odd or beyond what the file holds.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"
#include "helpers/Sources.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ChapterMark;
using test::MediaRecipe;
using test::ModelFixture;
using test::ScriptedTools;
using Kind = WorkflowState::Kind;

namespace {

MediaRecipe smallRecipe(double duration, const QList<ChapterMark> &chapters)
{
    return {.sampleRate = 8000, .channelLayout = u"mono"_s, .duration = duration, .chapters = chapters};
}

QList<ChapterMark> manyChapters(int count, double length)
{
    QList<ChapterMark> result;
    for (int index = 0; index < count; ++index)
        result.append({index * length, (index + 1) * length, u"Song %1"_s.arg(index + 1)});
    return result;
}

// The failure of a load: nothing is there but the alert and the status line with these words.
void expectUnreadable(ModelFixture &fixture, const QString &description)
{
    EXPECT_EQ(fixture->currentState.value(), WorkflowState::error(description));
    EXPECT_TRUE(fixture->chapters.value().isEmpty());
    EXPECT_FALSE(fixture->sourceAudio.value());
    ASSERT_TRUE(fixture->alert.value());
    EXPECT_EQ(fixture->alert.value()->title, u"Couldn't Read Chapters"_s);
}

// Runs a job on a source that lasts two seconds, with pieces of which the file itself knows nothing, and
// compares each file with what ffmpeg makes of the piece by hand.
class OddPieces : public testing::Test
{
protected:
    void run(const QList<ChapterMark> &pieces)
    {
        ScriptedTools tools(pieces);
        tools.setEncoding("exec " + ScriptedTools::realEncoding());
        ModelFixture fixture({.tools = tools.location()});
        fixture.prepareJob(test::plainSource());
        fixture.runJob();
        ASSERT_EQ(fixture->currentState.value(), WorkflowState(Kind::complete));
        ASSERT_EQ(fixture->encodedFiles.value().size(), pieces.size());
        EXPECT_EQ(fixture->encodingProgress.value(), 1.0);
        for (qsizetype index = 0; index < pieces.size(); ++index) {
            const QString output = fixture->encodedFiles.value()[index].toLocalFile();
            EXPECT_EQ(test::decodedAudio(output), test::bareCut(test::plainSource(), pieces[index]));
            m_sampleCounts.append(test::sampleCount(output));
        }
    }

    QList<qint64> m_sampleCounts;
};

} // namespace

TEST(Chapters, AreNeeded)
{
    const QString source = test::sharedSource(u"none"_s, smallRecipe(0.5, {}));
    ModelFixture fixture;
    fixture.loadFile(source);
    expectUnreadable(fixture, u"\"none.mkv\" has no chapter markers."_s);
}

TEST(Chapters, MayBeASingleOne)
{
    const QString source = test::sharedSource(u"single"_s, smallRecipe(0.5, {{0, 0.5, u"All"_s}}));
    ModelFixture fixture;
    fixture.prepareJob(source);
    EXPECT_EQ(fixture->statusText(), u"Found 1 chapter."_s);
    fixture.runJob();
    EXPECT_EQ(fixture->statusText(), u"Encoded 1 track to out."_s);
    EXPECT_EQ(test::sampleCount(fixture.outputPath(u"01-All.flac"_s)), 4000);
    EXPECT_EQ(test::tagsWithoutEncoder(fixture.outputPath(u"01-All.flac"_s)),
              (QStringList{u"TRACKNUMBER=1"_s, u"TRACKTOTAL=1"_s, u"title=All"_s}));
}

TEST(Chapters, MayBeNinetyNine)
{
    constexpr int count = 99;
    const QString source = test::sharedSource(u"ninetynine"_s, smallRecipe(2, manyChapters(count, 0.02)));
    ModelFixture fixture;
    fixture.prepareJob(source);
    EXPECT_EQ(fixture->statusText(), u"Found 99 chapters."_s);
    fixture.runJob();
    EXPECT_EQ(fixture->statusText(), u"Encoded 99 tracks to out."_s);
    EXPECT_EQ(test::namesIn(fixture.outputPath()).size(), count + 1);
    EXPECT_EQ(test::tagsWithoutEncoder(fixture.outputPath(u"99-Song-99.flac"_s)),
              (QStringList{u"TRACKNUMBER=99"_s, u"TRACKTOTAL=99"_s, u"title=Song 99"_s}));
}

TEST(Chapters, MayBeNineHundredNinetyNine)
{
    constexpr int count = 999;
    const QString source = test::sharedSource(u"very many"_s, smallRecipe(1, manyChapters(count, 0.001)));
    ModelFixture fixture;
    fixture.loadFile(source);
    EXPECT_EQ(fixture->statusText(), u"Found 999 chapters."_s);
    ASSERT_EQ(fixture->chapters.value().size(), count);
    EXPECT_EQ(fixture->chapters.value().last().originalTitle, u"Song 999"_s);
    EXPECT_EQ(fixture->chapters.value().last().id, count - 1);
}

TEST(Chapters, GetNumbersOfThreeDigitsBeyondNinetyNine)
{
    ScriptedTools tools(manyChapters(101, 1));
    ModelFixture fixture({.tools = tools.location()});
    fixture.prepareJob(tools.source());
    fixture.runJob();
    EXPECT_THAT(
        test::namesIn(fixture.outputPath()),
        testing::IsSupersetOf({u"99-Song-99.flac"_s, u"100-Song-100.flac"_s, u"101-Song-101.flac"_s}));
}

TEST(Chapters, GetATitleIfTheyHaveNone)
{
    const QString source =
        test::sharedSource(u"untitled"_s, smallRecipe(0.6, {{0, 0.2}, {0.2, 0.4, u"Two"_s}, {0.4, 0.6}}));
    ModelFixture fixture;
    fixture.prepareJob(source);
    EXPECT_TRUE(fixture->untitledChapters().isEmpty());
    fixture.runJob();
    EXPECT_EQ(test::namesIn(fixture.outputPath()).first(3),
              (QStringList{u"01-Chapter-1.flac"_s, u"02-Two.flac"_s, u"03-Chapter-3.flac"_s}));
    EXPECT_THAT(test::flacTags(fixture.outputPath(u"03-Chapter-3.flac"_s)),
                testing::Contains(u"title=Chapter 3"_s));
}

TEST(Chapters, OfAFileMayOverlap)
{
    const QList<ChapterMark> chapters = {{0, 0.6, u"One"_s}, {0.3, 0.9, u"Two"_s}};
    const QString source = test::sharedSource(u"overlapping"_s, smallRecipe(1, chapters));
    ModelFixture fixture;
    fixture.prepareJob(source);
    fixture.runJob();
    EXPECT_EQ(test::decodedAudio(fixture.outputPath(u"01-One.flac"_s)), test::bareCut(source, chapters[0]));
    EXPECT_EQ(test::decodedAudio(fixture.outputPath(u"02-Two.flac"_s)), test::bareCut(source, chapters[1]));
}

TEST_F(OddPieces, MayOverlapOrRunBackwardsInTheList)
{
    ASSERT_NO_FATAL_FAILURE(run({{1, 2, u"One"_s}, {0.5, 1.5, u"Two"_s}, {0, 2, u"Three"_s}}));
}

TEST_F(OddPieces, MayLeaveGaps)
{
    ASSERT_NO_FATAL_FAILURE(run({{0.25, 0.5, u"One"_s}, {1.5, 1.75, u"Two"_s}}));
}

TEST_F(OddPieces, OfNoLengthGiveFilesWithoutSound)
{
    ASSERT_NO_FATAL_FAILURE(run({{0.5, 0.5, u"Empty"_s}, {1.5, 1, u"Backwards"_s}, {0, 1, u"One"_s}}));
    EXPECT_EQ(m_sampleCounts.first(2), (QList<qint64>{0, 0}));
    EXPECT_GT(m_sampleCounts[2], 44000);
}

TEST_F(OddPieces, BeyondTheEndGiveWhatThereIs)
{
    ASSERT_NO_FATAL_FAILURE(run({{1.5, 3, u"Partly"_s}, {3, 4, u"Wholly"_s}}));
    EXPECT_NEAR(double(m_sampleCounts[0]), 22050, 50);
    EXPECT_EQ(m_sampleCounts[1], 0);
}

TEST(ForeignFile, NamedMkvIsReadWhateverItIs)
{
    const MediaRecipe recipe = {.audioCodec = test::codec::alac(),
                                .duration = 1,
                                .chapters = {{0, 0.5, u"One"_s}, {0.5, 1, u"Two"_s}}};
    ModelFixture fixture;
    test::makeMedia(fixture.path(u"a.m4a"_s), recipe);
    ASSERT_TRUE(QFile::rename(fixture.path(u"a.m4a"_s), fixture.path(u"a.mkv"_s)));
    fixture.prepareJob(fixture.path(u"a.mkv"_s));
    fixture.runJob();
    EXPECT_EQ(fixture->statusText(), u"Encoded 2 tracks to out."_s);
    EXPECT_EQ(test::decodedAudio(fixture.outputPath(u"02-Two.flac"_s)),
              test::bareCut(fixture.path(u"a.mkv"_s), {0.5, 1}));
}

TEST(ForeignFile, WithoutChaptersIsRefused)
{
    ModelFixture fixture;
    test::makeMedia(fixture.path(u"a.wav"_s), {.audioCodec = test::codec::pcm16(), .duration = 0.5});
    ASSERT_TRUE(QFile::rename(fixture.path(u"a.wav"_s), fixture.path(u"a.mkv"_s)));
    fixture.loadFile(fixture.path(u"a.mkv"_s));
    expectUnreadable(fixture, u"\"a.mkv\" has no chapter markers."_s);
}

TEST(ForeignFile, ThatIsNoMediaIsRefusedInFfprobesWords)
{
    ModelFixture fixture;
    const QString source = fixture.path(u"a.mkv"_s);
    test::writeFile(source, "This is a text.");
    fixture.loadFile(source);
    const QString text = fixture->statusText();
    EXPECT_TRUE(text.startsWith(u"ffprobe exited with status 1.\n\n"_s)) << text.toStdString();
    EXPECT_TRUE(text.endsWith(source + u": Invalid data found when processing input"_s))
        << text.toStdString();
    expectUnreadable(fixture, text);
    EXPECT_EQ(fixture->alert.value().value().message, text);
}

TEST(ForeignFile, ThatIsEmptyIsRefused)
{
    ModelFixture fixture;
    test::writeFile(fixture.path(u"a.mkv"_s), {});
    fixture.loadFile(fixture.path(u"a.mkv"_s));
    expectUnreadable(fixture, fixture->statusText());
    EXPECT_TRUE(fixture->statusText().startsWith(u"ffprobe exited with status 1.\n\n"_s));
}

namespace {

// A file of four chapters of half a second, of which only a part has arrived.
class TruncatedFile : public testing::Test
{
protected:
    void truncate(double share)
    {
        const QByteArray whole = test::readFile(test::sharedSource(
            u"whole"_s,
            {.audioCodec = test::codec::pcm16(),
             .duration = 2,
             .chapters = {{0, 0.5, u"A"_s}, {0.5, 1, u"B"_s}, {1, 1.5, u"C"_s}, {1.5, 2, u"D"_s}}}));
        test::writeFile(m_source, whole.first(qsizetype(double(whole.size()) * share)));
    }

    ModelFixture m_fixture;
    QString m_source = m_fixture.path(u"part.mkv"_s);
};

} // namespace

TEST_F(TruncatedFile, IsRefusedWithoutItsHeader)
{
    truncate(0.001);
    m_fixture.loadFile(m_source);
    expectUnreadable(m_fixture, m_fixture->statusText());
    EXPECT_TRUE(m_fixture->statusText().startsWith(u"ffprobe exited with status 1.\n\n"_s));
}

TEST_F(TruncatedFile, GivesTheSoundThatHasArrived)
{
    truncate(0.6);
    m_fixture.prepareJob(m_source);
    EXPECT_EQ(m_fixture->statusText(), u"Found 4 chapters."_s);
    m_fixture.runJob();
    EXPECT_EQ(m_fixture->statusText(), u"Encoded 4 tracks to out."_s);
    QList<qint64> counts;
    for (int index = 0; index < 4; ++index) {
        const QString output = m_fixture->encodedFiles.value()[index].toLocalFile();
        EXPECT_EQ(test::decodedAudio(output), test::bareCut(m_source, {index * 0.5, (index + 1) * 0.5}));
        counts.append(test::sampleCount(output));
    }
    EXPECT_NEAR(double(counts[0]), 22050, 50);
    EXPECT_NEAR(double(counts[1]), 22050, 50);
    EXPECT_LT(counts[2], 11025);
    EXPECT_EQ(counts[3], 0);
}

} // namespace tonearm
