// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/ChapterExtractionService.h"

#include "encoding/ProbeReply.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Media.h"
#include "helpers/Printing.h"
#include "helpers/StandInTools.h"
#include "support/Cancellation.h"
#include "support/Json.h"
#include "support/ResourceFolder.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::MediaRecipe;
using test::StandInTools;

namespace {

constexpr auto oneChapter = R"({"chapters": [{"start_time": "0", "end_time": "1", "tags": {"title": "A"}}]})";

ChapterExtractionService realService()
{
    return ChapterExtractionService(ToolLocation(resourceFolder()));
}

QCoro::Task<SourceInspection> inspection(const ChapterExtractionService &service, const QString &path)
{
    return service.inspect(QUrl::fromLocalFile(path), std::stop_token());
}

ChapterInfo madeChapter(qint64 id, double start, double end, const QString &title)
{
    return {.id = id, .startSeconds = start, .endSeconds = end, .originalTitle = title, .mappedTitle = title};
}

// What the real ffprobe finds in a generated file.
SourceInspection inspected(const MediaRecipe &recipe)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a: 50% [#1] & %03d.mkv"_s);
    test::makeMedia(path, recipe);
    return test::await(inspection(realService(), path));
}

AudioStreamInfo inspectedStream(const QStringList &codec, int sampleRate, const QString &layout)
{
    return inspected({.audioCodec = codec,
                      .sampleRate = sampleRate,
                      .channelLayout = layout,
                      .duration = 1,
                      .chapters = {{0, 1, u"A"_s}}})
        .audioStream.value_or(AudioStreamInfo{});
}

// A readable file that a stand-in for ffprobe is then asked about.
QString sourceIn(const StandInTools &tools, const QString &name = u"source.mkv"_s)
{
    test::writeFile(tools.path(name), "no media");
    return tools.path(name);
}

} // namespace

TEST(ChapterExtractionService, FindsChaptersAndAudio)
{
    const auto found =
        inspected({.chapters = {{0, 1.5, u"One = 1; #"_s}, {1.5, 2.25, {}}, {2.25, 4, u" Größe "_s}}});
    EXPECT_EQ(found.chapters, (QList<ChapterInfo>{madeChapter(0, 0, 1.5, u"One = 1; #"_s),
                                                  madeChapter(1, 1.5, 2.25, u"Chapter 2"_s),
                                                  madeChapter(2, 2.25, 4, u"Größe"_s)}));
    EXPECT_EQ(found.audioStream, (AudioStreamInfo{.codecName = u"flac"_s,
                                                  .sampleRateHertz = 44100,
                                                  .bitDepth = 16,
                                                  .channelCount = 2,
                                                  .channelLayout = u"stereo"_s}));
}

TEST(ChapterExtractionService, KnowsTheFormatsOfDiscs)
{
    EXPECT_EQ(inspectedStream(test::codec::flac24(), 96000, u"stereo"_s).summaryLine(),
              u"FLAC · 24-bit · 96 kHz · Stereo"_s);
    EXPECT_EQ(inspectedStream(test::codec::pcm24(), 48000, u"mono"_s).summaryLine(),
              u"LPCM · 24-bit · 48 kHz · Mono"_s);
    EXPECT_EQ(inspectedStream(test::codec::trueHD(), 48000, u"5.1(side)"_s).summaryLine(),
              u"Dolby TrueHD · 24-bit · 48 kHz · 5.1"_s);
    EXPECT_EQ(inspectedStream(test::codec::ac3(), 48000, u"stereo"_s).summaryLine(),
              u"Dolby Digital · 48 kHz · Stereo · 192 kbps"_s);
    EXPECT_EQ(inspectedStream(test::codec::dts(), 48000, u"stereo"_s).codecDisplayName(), u"DTS"_s);
}

TEST(ChapterExtractionService, TakesTheFirstAudioStreamBehindAVideo)
{
    const auto found = inspected({.duration = 1, .chapters = {{0, 1, u"A"_s}}, .hasVideo = true});
    EXPECT_EQ(found.audioStream.value_or(AudioStreamInfo{}).codecName, u"flac"_s);
}

TEST(ChapterExtractionService, AcceptsAFileWithoutAudio)
{
    const auto found =
        inspected({.audioCodec = {}, .duration = 1, .chapters = {{0, 1, u"A"_s}}, .hasVideo = true});
    EXPECT_EQ(found, (SourceInspection{.chapters = {madeChapter(0, 0, 1, u"A"_s)}, .audioStream = {}}));
}

TEST(ChapterExtractionService, RefusesAFileWithoutChapters)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"plain.mkv"_s);
    test::makeMedia(path, {.duration = 1});
    EXPECT_EQ(test::awaitError<ChapterExtractionError>(inspection(realService(), path)),
              ChapterExtractionError::noChapters(QUrl::fromLocalFile(path)));
}

TEST(ChapterExtractionService, JudgesTheNameAndNotTheContent)
{
    const QTemporaryDir folder;
    const QString wave = folder.filePath(u"sound.wav"_s);
    const QString named = folder.filePath(u"sound.mkv"_s);
    test::makeMedia(wave, {.audioCodec = test::codec::pcm16(), .duration = 1});
    ASSERT_TRUE(QFile::rename(wave, named));
    EXPECT_EQ(test::awaitError<ChapterExtractionError>(inspection(realService(), named)),
              ChapterExtractionError::noChapters(QUrl::fromLocalFile(named)));
}

TEST(ChapterExtractionService, PassesOnWhatFfprobeSaysOfAFileItCantRead)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"text.mkv"_s);
    test::writeFile(path, "This is a text.");
    const auto error = test::awaitError<ProcessRunnerError>(inspection(realService(), path));
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->command, u"ffprobe"_s);
    EXPECT_EQ(error->status, 1);
    EXPECT_TRUE(error->stderrText.contains(u"Invalid data"_s)) << error->stderrText.toStdString();
}

TEST(ChapterExtractionService, AcceptsTheExtensionInAnyCase)
{
    StandInTools tools;
    tools.add(u"ffprobe"_s, QByteArray("echo '") + oneChapter + "'");
    const ChapterExtractionService service(tools.location());
    for (const QString &name : {u"MOVIE.MKV"_s, u"a.b.mKv"_s})
        EXPECT_EQ(test::await(inspection(service, sourceIn(tools, name))).chapters.size(), 1)
            << name.toStdString();
}

TEST(ChapterExtractionService, RefusesOtherNames)
{
    const StandInTools tools;
    const ChapterExtractionService service(tools.location());
    for (const QString &name :
         {u"movie.mka"_s, u"mkv"_s, u".mkv"_s, u"movie.mkv.txt"_s, u"movie.mkv "_s, u"movie."_s}) {
        const QString path = sourceIn(tools, name);
        EXPECT_EQ(test::awaitError<ChapterExtractionError>(inspection(service, path)),
                  ChapterExtractionError::notMatroska(QUrl::fromLocalFile(path)));
    }
}

TEST(ChapterExtractionService, LooksAtTheNameBeforeTheFile)
{
    const StandInTools tools;
    const ChapterExtractionService service(tools.location());
    const QString wrongName = tools.path(u"gone.mp4"_s);
    EXPECT_EQ(test::awaitError<ChapterExtractionError>(inspection(service, wrongName)),
              ChapterExtractionError::notMatroska(QUrl::fromLocalFile(wrongName)));
    const QString gone = tools.path(u"gone.mkv"_s);
    EXPECT_EQ(test::awaitError<ChapterExtractionError>(inspection(service, gone)),
              ChapterExtractionError::unreadableFile(QUrl::fromLocalFile(gone)));
}

TEST(ChapterExtractionService, TellsThatFfprobeIsMissing)
{
    const StandInTools noTools;
    const ChapterExtractionService service(noTools.location());
    EXPECT_EQ(test::awaitError<FFmpegNotFoundError>(inspection(service, sourceIn(noTools))),
              FFmpegNotFoundError(u"ffprobe"_s));
}

TEST(ChapterExtractionService, AsksFfprobeOnceWithTheseArguments)
{
    StandInTools tools;
    tools.add(u"ffprobe"_s, R"(for item; do printf '%s\n' "$item" >> "$here/arguments"; done; echo ')" +
                                QByteArray(oneChapter) + "'");
    const QString path = sourceIn(tools, u"it's 50% [a: b] %03d.mkv"_s);
    test::await(inspection(ChapterExtractionService(tools.location()), path));
    EXPECT_EQ(QString::fromUtf8(test::readFile(tools.path(u"arguments"_s))),
              u"-v\nerror\n-print_format\njson\n-show_chapters\n-show_streams\n-select_streams\na:0\n"_s +
                  path + u'\n');
}

TEST(ChapterExtractionService, IgnoresComplaintsOfASuccessfulRun)
{
    StandInTools tools;
    tools.add(u"ffprobe"_s, QByteArray("echo 'complaint' >&2; echo '") + oneChapter + "'");
    const auto found = test::await(inspection(ChapterExtractionService(tools.location()), sourceIn(tools)));
    EXPECT_EQ(found.chapters, QList<ChapterInfo>{madeChapter(0, 0, 1, u"A"_s)});
}

TEST(ChapterExtractionService, TellsWhyAReplyCantBeRead)
{
    for (const QByteArray &reply :
         {QByteArray(""), QByteArray("not JSON"),
          QByteArray(R"({"chapters": [{"start_time": 12.5, "end_time": "13"}]})")}) {
        StandInTools tools;
        tools.add(u"ffprobe"_s, "printf '%s' '" + reply + "'");
        const auto reason = test::errorOf<JsonError>([&] { return readProbeReply(reply); });
        ASSERT_TRUE(reason.has_value());
        EXPECT_EQ(test::awaitError<ChapterExtractionError>(
                      inspection(ChapterExtractionService(tools.location()), sourceIn(tools))),
                  ChapterExtractionError::malformedOutput(reason->description()));
    }
}

TEST(ChapterExtractionService, RefusesAReplyWithoutAUsableChapter)
{
    for (const QByteArray &reply :
         {QByteArray(R"({"chapters": [], "streams": [{"codec_name": "flac"}]})"),
          QByteArray(R"({"streams": [{"codec_name": "flac"}]})"),
          QByteArray(R"({"chapters": [{"start_time": "0"}, {"end_time": "1"}]})")}) {
        StandInTools tools;
        tools.add(u"ffprobe"_s, "echo '" + reply + "'");
        const QString path = sourceIn(tools);
        EXPECT_EQ(test::awaitError<ChapterExtractionError>(
                      inspection(ChapterExtractionService(tools.location()), path)),
                  ChapterExtractionError::noChapters(QUrl::fromLocalFile(path)));
    }
}

TEST(ChapterExtractionService, PassesOnAFailedRunWhateverItPrinted)
{
    StandInTools tools;
    tools.add(u"ffprobe"_s, QByteArray("echo 'no good' >&2; echo '") + oneChapter + "'; exit 3");
    EXPECT_EQ(test::awaitError<ProcessRunnerError>(
                  inspection(ChapterExtractionService(tools.location()), sourceIn(tools))),
              ProcessRunnerError::nonZeroExit(u"ffprobe"_s, 3, u"no good\n"_s));
}

TEST(ChapterExtractionService, EndsFfprobeWhenCancelled)
{
    StandInTools tools;
    tools.add(u"ffprobe"_s, R"(echo $$ > "$here/pid"; touch "$here/started"; exec sleep 600)");
    std::stop_source stop;
    auto task = ChapterExtractionService(tools.location())
                    .inspect(QUrl::fromLocalFile(sourceIn(tools)), stop.get_token());
    ASSERT_TRUE(tools.waitFor(u"started"_s));
    stop.request_stop();
    EXPECT_TRUE(test::awaitError<CancellationError>(std::move(task)).has_value());
    EXPECT_FALSE(tools.isRunning());
}

TEST(ChapterExtractionService, StartsNothingOnceCancelled)
{
    StandInTools tools;
    tools.add(u"ffprobe"_s, R"(touch "$here/started")");
    std::stop_source stop;
    stop.request_stop();
    auto task = ChapterExtractionService(tools.location())
                    .inspect(QUrl::fromLocalFile(sourceIn(tools)), stop.get_token());
    EXPECT_TRUE(test::awaitError<CancellationError>(std::move(task)).has_value());
    EXPECT_FALSE(test::namesIn(tools.path()).contains(u"started"_s));
}

} // namespace tonearm
