// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/ChapterPreviewService.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Media.h"
#include "helpers/Printing.h"
#include "helpers/StandInTools.h"
#include "support/Cancellation.h"
#include "support/PathText.h"
#include "support/ResourceFolder.h"
#include "support/TaskScope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTimer>
#include <QUuid>

#include <chrono>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::await;
using test::awaitError;
using test::StandInTools;

namespace {

constexpr double limit = 20;
// Of two channels at 44.1 kHz, with 32 bits to a sample as they are compared.
constexpr qsizetype decodedBytesPerSecond = qsizetype{44100} * 2 * 4;

// What Matroska counts in.
constexpr double millisecond = 0.001;

// Leaves a file for each run, and what it was told.
constexpr auto recordedCut = R"(
    echo run >> "$here/runs"
    for last; do printf '%s\n' "$last" >> "$here/arguments"; done
    echo sound > "$last")";

ChapterInfo chapterAt(double start, double end, qint64 id = 0)
{
    return {.id = id, .startSeconds = start, .endSeconds = end};
}

QString fileOf(const ChapterPreview &preview)
{
    return preview.url.toLocalFile();
}

double secondsOf(const ChapterPreview &preview)
{
    return static_cast<double>(test::decodedAudio(fileOf(preview)).size()) / decodedBytesPerSecond;
}

// The service with a script in ffmpeg's place.
class ScriptedPreviews : public testing::Test
{
protected:
    ScriptedPreviews() { m_tools.add(u"ffmpeg"_s, recordedCut); }

    QCoro::Task<ChapterPreview> preview(const ChapterInfo &wanted, std::stop_token stop = {})
    {
        return m_service.preview(wanted, m_source, limit, stop);
    }

    QByteArrayList argumentsOfTheRun() const
    {
        return test::readFile(m_tools.path(u"arguments"_s)).trimmed().split('\n');
    }

    qsizetype runs() const { return test::readFile(m_tools.path(u"runs"_s)).count('\n'); }

    QString previewFolder() const { return m_folder.filePath(u"Tonearm/Previews"_s); }

    QStringList files() const { return test::namesIn(previewFolder()); }

    // NOLINTBEGIN(cppcoreguidelines-non-private-member-variables-in-classes): a fixture
    StandInTools m_tools;
    QTemporaryDir m_folder;
    QUrl m_source{u"file:///music/source.mkv"_s};
    ChapterPreviewService m_service{m_tools.location(), m_folder.path()};
    // NOLINTEND(cppcoreguidelines-non-private-member-variables-in-classes)
};

// The service with ffmpeg itself.
class RealPreviews : public testing::Test
{
protected:
    ChapterPreview preview(const ChapterInfo &wanted)
    {
        return await(m_service.preview(wanted, source(), limit, {}));
    }

    ChapterPreviewService &service() { return m_service; }

    QString path(const QString &name) const { return m_folder.filePath(name); }

    QUrl source() const { return QUrl::fromLocalFile(path(u"source.mkv"_s)); }

    QStringList files() const { return test::namesIn(path(u"Tonearm/Previews"_s)); }

private:
    QTemporaryDir m_folder;
    ChapterPreviewService m_service{ToolLocation(resourceFolder()), m_folder.path()};
};

} // namespace

TEST_F(RealPreviews, CutsTwentySecondsOfALongChapterAndAllOfAShortOne)
{
    test::makeMedia(source().toLocalFile(), {.sampleRate = 8000, .duration = 190});
    const ChapterPreview longOne = preview(chapterAt(8, 188, 1));
    EXPECT_EQ(longOne.duration, 20);
    EXPECT_EQ(longOne.chapterID, 1);
    EXPECT_NEAR(secondsOf(longOne), 20, millisecond);
    const ChapterPreview shortOne = preview(chapterAt(0, 8));
    EXPECT_EQ(shortOne.duration, 8);
    EXPECT_NEAR(secondsOf(shortOne), 8, millisecond);
}

TEST_F(RealPreviews, PlayWhatTheChapterHoldsFromItsStart)
{
    // Such a file, unlike Matroska, can be cut at any sample.
    const QString track = path(u"track.aiff"_s);
    test::makeMedia(track, {.audioCodec = {u"-c:a"_s, u"pcm_s16be"_s}, .duration = 4});
    const QUrl url = QUrl::fromLocalFile(track);
    const ChapterPreview made = await(service().preview(chapterAt(2, 3), url, limit, {}));
    EXPECT_EQ(test::decodedAudio(fileOf(made)),
              test::decodedAudio(track).mid(2 * decodedBytesPerSecond, decodedBytesPerSecond));
}

TEST_F(RealPreviews, AreSixteenBitStereoWhateverTheSource)
{
    test::makeMedia(source().toLocalFile(), {.audioCodec = test::codec::flac24(),
                                             .sampleRate = 96000,
                                             .channelLayout = u"5.1(side)"_s,
                                             .duration = 2});
    const QByteArray header = test::readFile(fileOf(preview(chapterAt(0, 1)))).first(44);
    EXPECT_EQ(header.first(4), "RIFF");
    EXPECT_EQ(header.mid(22, 2), QByteArray("\x02\x00", 2));         // channels
    EXPECT_EQ(header.mid(24, 4), QByteArray("\x44\xAC\x00\x00", 4)); // hertz
    EXPECT_EQ(header.mid(34, 2), QByteArray("\x10\x00", 2));         // bits
}

TEST_F(RealPreviews, FailWithFfmpegsWordsAndLeaveNothing)
{
    test::writeFile(source().toLocalFile(), "This is a text.");
    const auto error = test::errorOf<ProcessRunnerError>([&] { return preview(chapterAt(0, 1)); });
    ASSERT_TRUE(error.has_value());
    EXPECT_THAT(error->description().toStdString(), testing::HasSubstr("Invalid data"));
    EXPECT_EQ(files(), QStringList());
}

TEST_F(ScriptedPreviews, LieInTheFolderForPreviewsUnderANameOfTheirOwn)
{
    const ChapterPreview made = await(preview(chapterAt(0, 8)));
    EXPECT_EQ(QFileInfo(fileOf(made)).path(), previewFolder());
    const QString name = lastPathComponent(made.url);
    EXPECT_TRUE(name.startsWith(u"preview-"_s) && name.endsWith(u".wav"_s)) << name.toStdString();
    EXPECT_FALSE(QUuid(name.sliced(8).chopped(4)).isNull()) << name.toStdString();
    EXPECT_EQ(test::readFile(fileOf(made)), "sound\n");
}

TEST_F(ScriptedPreviews, TellFfmpegWhatToCut)
{
    const ChapterInfo wanted = chapterAt(3.25, 60);
    const ChapterPreview made = await(preview(wanted));
    const QStringList arguments = previewArguments(wanted, m_source, limit, fileOf(made));
    EXPECT_EQ(argumentsOfTheRun(), arguments.join(u'\n').toUtf8().split('\n'));
}

TEST_F(ScriptedPreviews, OfAChapterThatEndsBeforeItStartsHaveNoLength)
{
    EXPECT_EQ(await(preview(chapterAt(9, 5))).duration, 0);
    const QByteArrayList arguments = argumentsOfTheRun();
    EXPECT_EQ(arguments.value(arguments.indexOf("-t") + 1), "0.000000");
}

TEST_F(ScriptedPreviews, AreMadeOnce)
{
    const ChapterPreview first = await(preview(chapterAt(3, 90)));
    EXPECT_EQ(await(preview(chapterAt(3, 90))), first);
    EXPECT_EQ(runs(), 1);
}

TEST_F(ScriptedPreviews, AreSharedByChaptersThatStartTogetherWhileEachKeepsItsIdAndLength)
{
    const ChapterPreview first = await(preview(chapterAt(3, 90, 1)));
    EXPECT_EQ(await(preview(chapterAt(3.0000001, 8, 2))),
              (ChapterPreview{.chapterID = 2, .url = first.url, .duration = 8 - 3.0000001}));
    EXPECT_EQ(runs(), 1);
}

TEST_F(ScriptedPreviews, AreMadeForEachSourceAndStart)
{
    const ChapterPreview first = await(preview(chapterAt(3, 90)));
    const ChapterPreview later = await(preview(chapterAt(4, 90)));
    m_source = QUrl(u"file:///music/other.mkv"_s);
    const ChapterPreview other = await(preview(chapterAt(3, 90)));
    EXPECT_NE(first.url, later.url);
    EXPECT_NE(first.url, other.url);
    EXPECT_EQ(runs(), 3);
}

TEST_F(ScriptedPreviews, AreMadeAgainWhenTheirFileHasGone)
{
    const ChapterPreview first = await(preview(chapterAt(3, 90)));
    ASSERT_TRUE(QFile::remove(fileOf(first)));
    const ChapterPreview second = await(preview(chapterAt(3, 90)));
    EXPECT_NE(second.url, first.url);
    EXPECT_TRUE(QFile::exists(fileOf(second)));
    EXPECT_EQ(await(preview(chapterAt(3, 90))), second);
    EXPECT_EQ(runs(), 2);
}

TEST_F(ScriptedPreviews, AreMadeTwiceWhenAskedForTwiceAtOnceAndTheLaterStays)
{
    // The run that began first ends last.
    m_tools.add(u"ffmpeg"_s, QByteArray(recordedCut) + R"(
        mkdir "$here/begun" 2>/dev/null || exit 0
        until [ -e "$here/go" ]; do sleep 0.01; done)");
    QCoro::Task<ChapterPreview> first = preview(chapterAt(3, 90));
    ASSERT_TRUE(test::eventually([&] { return QFile::exists(m_tools.path(u"begun"_s)); }));
    const ChapterPreview second = await(preview(chapterAt(3, 90)));
    test::writeFile(m_tools.path(u"go"_s), {});
    const ChapterPreview later = await(std::move(first));
    EXPECT_NE(later.url, second.url);
    EXPECT_EQ(files().size(), 2);
    EXPECT_EQ(await(preview(chapterAt(3, 90))), later);
    EXPECT_EQ(runs(), 2);
}

TEST_F(ScriptedPreviews, GoWithTheCache)
{
    await(preview(chapterAt(3, 90)));
    const ChapterPreview lost = await(preview(chapterAt(4, 90)));
    EXPECT_EQ(files().size(), 2);
    ASSERT_TRUE(QFile::remove(fileOf(lost)));
    await(m_service.clearCache());
    EXPECT_EQ(files(), QStringList());
    await(preview(chapterAt(3, 90)));
    EXPECT_EQ(runs(), 3);
}

TEST_F(ScriptedPreviews, SurviveAClearingOfTheCacheWhileTheyAreMade)
{
    m_tools.add(u"ffmpeg"_s, QByteArray(recordedCut) + R"(
        until [ -e "$here/go" ]; do sleep 0.01; done)");
    QCoro::Task<ChapterPreview> making = preview(chapterAt(3, 90));
    ASSERT_TRUE(m_tools.waitFor(u"runs"_s));
    await(m_service.clearCache());
    test::writeFile(m_tools.path(u"go"_s), {});
    EXPECT_TRUE(QFile::exists(fileOf(await(std::move(making)))));
}

TEST_F(ScriptedPreviews, LeaveNoFileOfARunThatFails)
{
    m_tools.add(u"ffmpeg"_s, QByteArray(recordedCut) + "\necho broken >&2; exit 3");
    EXPECT_EQ(awaitError<ProcessRunnerError>(preview(chapterAt(3, 90))),
              ProcessRunnerError::nonZeroExit(u"ffmpeg"_s, 3, u"broken\n"_s));
    EXPECT_EQ(files(), QStringList());
    m_tools.add(u"ffmpeg"_s, recordedCut);
    EXPECT_TRUE(QFile::exists(fileOf(await(preview(chapterAt(3, 90))))));
}

TEST_F(ScriptedPreviews, NeedFfmpeg)
{
    ASSERT_TRUE(QFile::remove(m_tools.path(u"bin/ffmpeg"_s)));
    EXPECT_EQ(awaitError<FFmpegNotFoundError>(preview(chapterAt(3, 90))), FFmpegNotFoundError(u"ffmpeg"_s));
}

TEST_F(ScriptedPreviews, PassOnThatFfmpegCantBeStarted)
{
    m_tools.addBytes(u"ffmpeg"_s, "\x7f"
                                  "ELF, but no program");
    EXPECT_TRUE(awaitError<std::system_error>(preview(chapterAt(3, 90))).has_value());
}

TEST_F(ScriptedPreviews, NeedTheirFolder)
{
    test::writeFile(m_folder.filePath(u"file"_s), {});
    ChapterPreviewService service(m_tools.location(), m_folder.filePath(u"file"_s));
    const auto error = awaitError<std::system_error>(service.preview(chapterAt(0, 1), m_source, limit, {}));
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->code(), std::errc::not_a_directory);
    EXPECT_FALSE(QFile::exists(m_tools.path(u"runs"_s)));
}

TEST_F(ScriptedPreviews, EndFfmpegAndLeaveNothingWhenCancelled)
{
    m_tools.add(u"ffmpeg"_s, R"(
        echo $$ > "$here/pid"
        for last; do :; done
        echo part > "$last"
        echo > "$here/started"
        exec sleep 60)");
    std::stop_source stop;
    QCoro::Task<ChapterPreview> making = preview(chapterAt(3, 90), stop.get_token());
    ASSERT_TRUE(m_tools.waitFor(u"started"_s));
    EXPECT_EQ(files().size(), 1);
    stop.request_stop();
    EXPECT_TRUE(awaitError<CancellationError>(std::move(making)).has_value());
    EXPECT_FALSE(m_tools.isRunning());
    EXPECT_EQ(files(), QStringList());
}

TEST_F(ScriptedPreviews, StartNothingWhenCancelledBefore)
{
    std::stop_source stop;
    stop.request_stop();
    EXPECT_TRUE(awaitError<CancellationError>(preview(chapterAt(3, 90), stop.get_token())).has_value());
    EXPECT_FALSE(QFile::exists(m_tools.path(u"runs"_s)));
}

TEST_F(RealPreviews, EndWellOrLeaveNothingAtWhateverMomentTheyAreCancelled)
{
    test::makeMedia(source().toLocalFile(), {.duration = 30});
    QStringList made;
    for (int delay = 0; delay < 30; ++delay) {
        TaskHandle handle;
        QTimer::singleShot(std::chrono::milliseconds(delay), [handle] { handle.cancel(); });
        try {
            // Each from another start, so that none finds the file of the one before.
            const ChapterInfo wanted = chapterAt(delay / 10.0, 30);
            made << lastPathComponent(
                await(service().preview(wanted, source(), limit, handle.stopToken())).url);
        } catch (const CancellationError &) { // NOLINT(bugprone-empty-catch): one of the two good ends
        }
    }
    made.sort();
    EXPECT_EQ(files(), made);
}

} // namespace tonearm
