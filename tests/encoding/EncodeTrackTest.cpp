// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/AudioEncodingService.h"

#include "helpers/Await.h"
#include "helpers/Borrowed.h"
#include "helpers/Contents.h"
#include "helpers/Media.h"
#include "helpers/Printing.h"
#include "helpers/StandInTools.h"
#include "support/Cancellation.h"
#include "support/ResourceFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <csignal>
#include <mutex>
#include <system_error>
#include <vector>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::MediaRecipe;
using test::StandInTools;

namespace {

AudioEncodingService encodingService()
{
    return AudioEncodingService(ToolLocation(resourceFolder()));
}

// A track that a stand-in for ffmpeg is asked to encode.
TrackEncoding trackIn(const StandInTools &tools)
{
    return {
        .chapter = {.startSeconds = 0, .endSeconds = 10, .mappedTitle = u"A"_s},
        .source = QUrl::fromLocalFile(tools.path(u"source.mkv"_s)),
        .output = QUrl::fromLocalFile(tools.path(u"01-A.flac"_s)),
        .number = 1,
        .total = 1,
    };
}

bool hasOutput(const TrackEncoding &track)
{
    return QFileInfo::exists(track.output.toLocalFile());
}

void makeOlderOutput(const TrackEncoding &track)
{
    test::writeFile(track.output.toLocalFile(), "older");
}

QCoro::Task<> encoding(const StandInTools &tools, const TrackEncoding &track, std::stop_token stop = {})
{
    return AudioEncodingService(tools.location()).encode(track, nullptr, std::move(stop));
}

// Leaves a part of the output, which is ffmpeg's last argument.
constexpr auto writePart = R"(for last; do :; done; echo part > "$last"; )";

// How many frames from `frame` a part lies in the whole, looking `tolerance` frames each way; -1 if nowhere.
qsizetype framesAway(const QByteArray &part, const QByteArray &whole, qsizetype frame, qsizetype frameBytes,
                     qsizetype tolerance)
{
    for (qsizetype shift = -tolerance; shift <= tolerance; ++shift) {
        if (whole.mid((frame + shift) * frameBytes, part.size()) == part)
            return std::abs(shift);
    }
    return -1;
}

class EncodeTrack : public testing::Test
{
protected:
    // A source with two chapters that meet at 1.5 seconds.
    TrackEncoding secondChapterOf(const MediaRecipe &recipe)
    {
        MediaRecipe chaptered = recipe;
        chaptered.chapters = {{0, 1.5, u"One"_s}, {1.5, 4, u"Two"_s}};
        test::makeMedia(path(u"source.mkv"_s), chaptered);
        return {
            .chapter = {.id = 1,
                        .startSeconds = 1.5,
                        .endSeconds = 4,
                        .originalTitle = u"Two"_s,
                        .mappedTitle = u"Zwei"_s},
            .source = QUrl::fromLocalFile(path(u"source.mkv"_s)),
            .output = QUrl::fromLocalFile(path(u"02-Zwei.flac"_s)),
            .metadata = {.artist = u"The Artist"_s,
                         .album = u"The Album"_s,
                         .year = u"1999-03-12"_s,
                         .genre = u"Rock"_s,
                         .discNumber = u"01"_s,
                         .discTotal = u"2"_s},
            .number = 2,
            .total = 2,
        };
    }

    // The same work by the system's ffmpeg, without this program.
    QByteArray bareResult(const TrackEncoding &track)
    {
        QStringList arguments = encodingService().arguments(track);
        arguments.last() = path(u"bare.flac"_s);
        test::outputOf(u"ffmpeg"_s, arguments);
        return test::decodedAudio(path(u"bare.flac"_s));
    }

    void encode(const TrackEncoding &track) { test::await(encodingService().encode(track, nullptr, {})); }

    QString path(const QString &name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
};

// The tags but for the encoder's name, sorted; that one has to be there, once.
QStringList tagsOf(const TrackEncoding &track)
{
    QStringList tags = test::flacTags(track.output.toLocalFile());
    const auto isEncoder = [](const QString &tag) { return tag.startsWith(u"encoder=Lavf"_s); };
    EXPECT_EQ(std::count_if(tags.begin(), tags.end(), isEncoder), 1);
    tags.erase(std::remove_if(tags.begin(), tags.end(), isEncoder), tags.end());
    tags.sort();
    return tags;
}

// What the FLAC muxer makes of the pairs: three keys get the names that FLAC has for them.
const QStringList fullTags = {u"ALBUMARTIST=The Artist"_s,
                              u"DISCNUMBER=1"_s,
                              u"DISCTOTAL=2"_s,
                              u"TRACKNUMBER=2"_s,
                              u"TRACKTOTAL=2"_s,
                              u"album=The Album"_s,
                              u"artist=The Artist"_s,
                              u"date=1999"_s,
                              u"genre=Rock"_s,
                              u"title=Zwei"_s};

struct Codec
{
    std::string name;
    QStringList options;
    int sampleRate;
};

void PrintTo(const Codec &codec,
             std::ostream *out) // NOLINT(readability-identifier-naming): GoogleTest's name
{
    *out << codec.name;
}

class EncodeLosslessTrack : public EncodeTrack, public testing::WithParamInterface<Codec>
{
};

} // namespace

TEST_P(EncodeLosslessTrack, CutsTheChapterOutUnchanged)
{
    constexpr qsizetype frameBytes = 8; // two channels of 32 bits, as they are compared
    const int rate = GetParam().sampleRate;
    const TrackEncoding track = secondChapterOf({.audioCodec = GetParam().options, .sampleRate = rate});
    encode(track);
    const QByteArray cut = test::decodedAudio(track.output.toLocalFile());
    EXPECT_EQ(cut, bareResult(track));
    // Matroska counts in milliseconds, so that a cut is as exact as that.
    const qsizetype millisecond = rate / 1000 + 1;
    EXPECT_NEAR(static_cast<double>(cut.size() / frameBytes), 2.5 * rate, static_cast<double>(millisecond));
    EXPECT_GE(framesAway(cut, test::decodedAudio(track.source.toLocalFile()), rate * 3 / 2, frameBytes,
                         millisecond),
              0);
    EXPECT_EQ(tagsOf(track), fullTags);
}

INSTANTIATE_TEST_SUITE_P(Codecs, EncodeLosslessTrack,
                         testing::Values(Codec{"Flac16", test::codec::flac16(), 44100},
                                         Codec{"Flac24", test::codec::flac24(), 96000},
                                         Codec{"Pcm16", test::codec::pcm16(), 44100},
                                         Codec{"Pcm24", test::codec::pcm24(), 48000},
                                         Codec{"TrueHD", test::codec::trueHD(), 48000},
                                         Codec{"Alac", test::codec::alac(), 44100}),
                         [](const auto &codec) { return codec.param.name; });

TEST_F(EncodeTrack, DecodesALossySourceAsFfmpegDoes)
{
    for (const QStringList &codec : {test::codec::ac3(), test::codec::dts()}) {
        const TrackEncoding track = secondChapterOf({.audioCodec = codec, .sampleRate = 48000});
        encode(track);
        EXPECT_EQ(test::decodedAudio(track.output.toLocalFile()), bareResult(track))
            << codec.last().toStdString();
        EXPECT_EQ(tagsOf(track), fullTags) << codec.last().toStdString();
    }
}

TEST_F(EncodeTrack, KeepsTheSourcesOwnTagsBesideTheJobs)
{
    TrackEncoding track =
        secondChapterOf({.metadata = {u"title=Movie"_s, u"album=Other"_s, u"comment=Hello"_s, u"MINE=x"_s}});
    track.metadata = {.artist = u"The Artist"_s};
    encode(track);
    EXPECT_EQ(tagsOf(track),
              (QStringList{u"ALBUM=Other"_s, u"ALBUMARTIST=The Artist"_s, u"DESCRIPTION=Hello"_s, u"MINE=x"_s,
                           u"TRACKNUMBER=2"_s, u"TRACKTOTAL=2"_s, u"artist=The Artist"_s, u"title=Zwei"_s}));
}

TEST_F(EncodeTrack, EmbedsTheCoverUnchanged)
{
    for (const QString &name : {u"cover [1] 50%.jpg"_s, u"a: cover.png"_s}) {
        TrackEncoding track = secondChapterOf({});
        test::makePicture(path(name), 120, 90);
        track.metadata.coverArtURL = QUrl::fromLocalFile(path(name));
        encode(track);
        const QString output = track.output.toLocalFile();
        EXPECT_EQ(test::outputOf(u"metaflac"_s, {u"--export-picture-to=-"_s, output}),
                  test::readFile(path(name)));
        const QByteArray blocks =
            test::outputOf(u"metaflac"_s, {u"--list"_s, u"--block-type=PICTURE"_s, output});
        EXPECT_THAT(blocks.toStdString(), testing::HasSubstr("type: 3 (Cover (front))"));
        EXPECT_THAT(blocks.toStdString(), testing::HasSubstr("description: Album cover"));
        EXPECT_EQ(tagsOf(track), fullTags);
    }
}

TEST_F(EncodeTrack, TakesAWholeFile)
{
    constexpr double length = 2;
    const QString source = path(u"track.aiff"_s);
    test::makeMedia(source, {.audioCodec = {u"-c:a"_s, u"pcm_s16be"_s}, .duration = length});
    const TrackEncoding track = {
        .chapter = {.startSeconds = 100, .endSeconds = 100 + length, .mappedTitle = u"A"_s},
        .source = QUrl::fromLocalFile(source),
        .output = QUrl::fromLocalFile(path(u"01-A.flac"_s)),
        .number = 1,
        .total = 1,
        .wholeFile = true,
    };
    encode(track);
    EXPECT_EQ(test::decodedAudio(track.output.toLocalFile()), test::decodedAudio(source));
    EXPECT_EQ(tagsOf(track), (QStringList{u"TRACKNUMBER=1"_s, u"TRACKTOTAL=1"_s, u"title=A"_s}));
}

TEST_F(EncodeTrack, TakesNamesLiterally)
{
    TrackEncoding track = secondChapterOf({});
    const QString folder = path(u"-50%: %03d [#1] it's *? & \\"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString source = folder + u"/a:b %d|[x].mkv"_s;
    ASSERT_TRUE(QFile::rename(track.source.toLocalFile(), source));
    track.source = QUrl::fromLocalFile(source);
    track.output = QUrl::fromLocalFile(folder + u"/02-%03d:x=[y]{z}&日本.flac"_s);
    track.chapter.mappedTitle = u"-i =日本\n\"x\" %03d"_s;
    track.metadata = {};
    encode(track);
    EXPECT_EQ(test::namesIn(folder), (QStringList{u"02-%03d:x=[y]{z}&日本.flac"_s, u"a:b %d|[x].mkv"_s}));
    EXPECT_THAT(tagsOf(track), testing::Contains(u"title=-i =日本"_s));
}

TEST_F(EncodeTrack, ReplacesAnOlderOutput)
{
    const TrackEncoding track = secondChapterOf({});
    makeOlderOutput(track);
    encode(track);
    EXPECT_EQ(tagsOf(track), fullTags);
}

TEST_F(EncodeTrack, ReportsItsProgressFromAnotherThread)
{
    const TrackEncoding track = secondChapterOf({});
    std::mutex lock;
    std::vector<double> fractions;
    std::vector<QThread *> threads;
    test::await(encodingService().encode(track,
                                         [&](double fraction) {
                                             const std::lock_guard guard(lock);
                                             fractions.push_back(fraction);
                                             threads.push_back(QThread::currentThread());
                                         },
                                         {}));
    EXPECT_THAT(threads, testing::Each(testing::Ne(QThread::currentThread())));
    EXPECT_TRUE(std::is_sorted(fractions.begin(), fractions.end()));
    ASSERT_FALSE(fractions.empty());
    EXPECT_NEAR(fractions.back(), 1.0, 0.001);
}

TEST_F(EncodeTrack, LeavesNothingOfASourceThatCantBeRead)
{
    TrackEncoding track = secondChapterOf({});
    test::writeFile(track.source.toLocalFile(), "This is a text.");
    makeOlderOutput(track);
    const auto error = test::awaitError<ProcessRunnerError>(encodingService().encode(track, nullptr, {}));
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->command, u"ffmpeg"_s);
    EXPECT_NE(error->status, 0);
    EXPECT_THAT(error->stderrText.toStdString(), testing::HasSubstr("Invalid data"));
    EXPECT_FALSE(hasOutput(track));
}

TEST_F(EncodeTrack, LeavesNothingOfAnEncodingThatIsCancelled)
{
    // Three hours of silence that take no room on the disk: ffmpeg is busy for seconds with that.
    constexpr quint32 soundBytes = 0x70000000;
    const auto little = [](quint32 value, int bytes) {
        QByteArray result;
        for (int index = 0; index < bytes; ++index)
            result.append(static_cast<char>((value >> (8 * index)) & 0xFF));
        return result;
    };
    const QString source = path(u"long.wav"_s);
    test::writeFile(source, "RIFF" + little(soundBytes + 36, 4) + "WAVEfmt " + little(16, 4) + little(1, 2) +
                                little(2, 2) + little(44100, 4) + little(176400, 4) + little(4, 2) +
                                little(16, 2) + "data" + little(soundBytes, 4));
    ASSERT_TRUE(QFile::resize(source, qint64(soundBytes) + 44));
    const TrackEncoding track = {
        .chapter = {.startSeconds = 0, .endSeconds = soundBytes / 176400.0, .mappedTitle = u"A"_s},
        .source = QUrl::fromLocalFile(source),
        .output = QUrl::fromLocalFile(path(u"01-A.flac"_s)),
        .number = 1,
        .total = 1,
        .wholeFile = true,
    };
    std::stop_source stop;
    bool hadOutput = false;
    auto task = encodingService().encode(
        track,
        [&](double) {
            hadOutput = hadOutput || hasOutput(track);
            stop.request_stop();
        },
        stop.get_token());
    EXPECT_TRUE(test::awaitError<CancellationError>(std::move(task)).has_value());
    EXPECT_TRUE(hadOutput);
    EXPECT_FALSE(hasOutput(track));
}

TEST(EncodeTrackRun, GivesFfmpegTheArgumentsOfTheTrack)
{
    StandInTools tools;
    tools.add(u"ffmpeg"_s, R"(for item; do printf '%s\n' "$item" >> "$here/arguments"; done)");
    const TrackEncoding track = trackIn(tools);
    test::await(encoding(tools, track));
    EXPECT_EQ(QString::fromUtf8(test::readFile(tools.path(u"arguments"_s))),
              ffmpegArguments(track).join(u'\n') + u'\n');
}

TEST(EncodeTrackRun, TurnsProgressLinesIntoFractions)
{
    StandInTools tools;
    tools.add(u"ffmpeg"_s,
              R"(printf 'out_time_us=N/A\nout_time=00:00:02.5\rout_time_us=5000000\nprogress=end' >&2
                              printf '\nout_time=00:00:11' >&2)");
    std::vector<double> fractions;
    test::await(AudioEncodingService(tools.location())
                    .encode(trackIn(tools), [&](double fraction) { fractions.push_back(fraction); }, {}));
    EXPECT_THAT(fractions, testing::ElementsAre(0.25, 0.5, 1.0));
}

TEST(EncodeTrackRun, RemovesThePartThatAFailedRunLeaves)
{
    StandInTools tools;
    tools.add(u"ffmpeg"_s, QByteArray(writePart) + "echo 'out_time=1' >&2; echo 'no good' >&2; exit 7");
    const TrackEncoding track = trackIn(tools);
    makeOlderOutput(track);
    EXPECT_EQ(test::awaitError<ProcessRunnerError>(encoding(tools, track)),
              ProcessRunnerError::nonZeroExit(u"ffmpeg"_s, 7, u"out_time=1\nno good\n"_s));
    EXPECT_FALSE(hasOutput(track));
}

TEST(EncodeTrackRun, RemovesThePartOfARunThatCantBeFollowed)
{
    StandInTools tools;
    tools.add(u"ffmpeg"_s, QByteArray(writePart) + R"(echo out_time=00:00:05 >&2
                                                      until [ -e "$here/go" ]; do sleep 0.01; done)");
    const TrackEncoding track = trackIn(tools);
    const auto letGo = [&](double /*fraction*/) { test::writeFile(tools.path(u"go"_s), {}); };
    const test::BorrowedSignals ignored(SIGCHLD, SIGUSR1);
    auto run = AudioEncodingService(tools.location()).encode(track, letGo, {});
    EXPECT_TRUE(test::awaitError<LostChildError>(std::move(run)).has_value());
    EXPECT_FALSE(hasOutput(track));
}

TEST(EncodeTrackRun, PassesOnTheRunsFailureWhenThereIsNothingToRemove)
{
    StandInTools tools;
    tools.add(u"ffmpeg"_s, "exit 7");
    EXPECT_EQ(test::awaitError<ProcessRunnerError>(encoding(tools, trackIn(tools))),
              ProcessRunnerError::nonZeroExit(u"ffmpeg"_s, 7, {}));
}

TEST(EncodeTrackRun, EndsFfmpegWhenCancelledAndRemovesItsOutput)
{
    StandInTools tools;
    tools.add(u"ffmpeg"_s,
              QByteArray(writePart) + R"(echo $$ > "$here/pid"; touch "$here/started"; exec sleep 600)");
    const TrackEncoding track = trackIn(tools);
    std::stop_source stop;
    auto task = encoding(tools, track, stop.get_token());
    ASSERT_TRUE(tools.waitFor(u"started"_s));
    ASSERT_TRUE(tools.isRunning());
    ASSERT_TRUE(hasOutput(track));
    stop.request_stop();
    EXPECT_TRUE(test::awaitError<CancellationError>(std::move(task)).has_value());
    EXPECT_FALSE(tools.isRunning());
    EXPECT_FALSE(hasOutput(track));
}

TEST(EncodeTrackRun, KeepsTheOlderFileIfItIsCancelledBeforeItsStart)
{
    StandInTools tools;
    tools.add(u"ffmpeg"_s, R"(touch "$here/started")");
    const TrackEncoding track = trackIn(tools);
    makeOlderOutput(track);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_TRUE(test::awaitError<CancellationError>(encoding(tools, track, stop.get_token())).has_value());
    EXPECT_EQ(test::readFile(track.output.toLocalFile()), "older");
    EXPECT_FALSE(test::namesIn(tools.path()).contains(u"started"_s));
}

TEST(EncodeTrackRun, KeepsTheOlderFileIfFfmpegIsMissing)
{
    const StandInTools tools;
    const TrackEncoding track = trackIn(tools);
    makeOlderOutput(track);
    EXPECT_EQ(test::awaitError<FFmpegNotFoundError>(encoding(tools, track)),
              FFmpegNotFoundError(u"ffmpeg"_s));
    EXPECT_EQ(test::readFile(track.output.toLocalFile()), "older");
}

TEST(EncodeTrackRun, KeepsTheOlderFileIfFfmpegCantBeStarted)
{
    StandInTools tools;
    tools.addBytes(u"ffmpeg"_s, "#!/nonexistent/interpreter\n");
    const TrackEncoding track = trackIn(tools);
    makeOlderOutput(track);
    EXPECT_TRUE(test::awaitError<std::system_error>(encoding(tools, track)).has_value());
    EXPECT_EQ(test::readFile(track.output.toLocalFile()), "older");
}

} // namespace tonearm
