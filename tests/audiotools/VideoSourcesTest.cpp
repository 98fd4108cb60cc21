// SPDX-License-Identifier: GPL-3.0-or-later
#include "audiotools/AudioTools.h"
#include "audiotools/ToolComparison.h"
#include "helpers/Contents.h"
#include "helpers/Media.h"
#include "helpers/Printing.h"

#include <QRegularExpression>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

class SourcesWithMore : public ToolComparison
{
protected:
    /// Makes the audio of a source, with chapters.
    QString makeAudio(const QString &codec)
    {
        makeMedia(path(u"audio.mkv"_s),
                  {.audioCodec = words(codec),
                   .sampleRate = 48000,
                   .duration = 2.5,
                   .chapters = {{0, 0.7, u"One"_s}, {0.7, 1.65, u"Two"_s}, {1.65, 2.5, u"Three"_s}}});
        return path(u"audio.mkv"_s);
    }

    void expectSameTracks(const QString &source)
    {
        EXPECT_TRUE(expectSameProbe(sourceProbeOptions(), source).contains("\"title\": \"Three\""));
        for (const auto &[start, length] : {std::pair(u"0.000000"_s, u"0.700000"_s),
                                            {u"0.700000"_s, u"0.950000"_s},
                                            {u"1.650000"_s, u"0.850000"_s}}) {
            const TwoFiles tracks = expectSameFile(
                encodingArguments({.source = source, .start = start, .length = length}), u"track.flac"_s);
            EXPECT_GT(flacSummary(tracks.shipped).sampleCount, 0);
        }
    }
};

struct VideoSource
{
    /// A test name: letters and digits.
    const char *name;
    /// ffmpeg's options for the encoders.
    const char *video;
    const char *audio;
    /// Seconds that the audio begins after the video.
    const char *audioDelay = "0";
};

void PrintTo(const VideoSource &source, std::ostream *out)
{
    *out << source.name;
}

class VideoSources : public SourcesWithMore, public testing::WithParamInterface<VideoSource>
{
};

} // namespace

// What the video is like decides where ffmpeg begins to read for a cut, although only the audio is cut.
TEST_P(VideoSources, AreProbedAndCutAsByTheSystem)
{
    const QString audio = makeAudio(QString::fromLatin1(GetParam().audio));
    make(u"source.mkv"_s, words(u"-f lavfi -i testsrc2=s=320x240:r=25:d=2.5 -itsoffset"_s) +
                              QStringList{QString::fromLatin1(GetParam().audioDelay), u"-i"_s, audio} +
                              words(u"-map 0:v -map 1:a -map_chapters 1 -c:a copy -strict -2"_s) +
                              words(QString::fromLatin1(GetParam().video)));
    expectSameTracks(path(u"source.mkv"_s));
}

INSTANTIATE_TEST_SUITE_P(
    Matroska, VideoSources,
    testing::Values(VideoSource{"H264WithFlac", "-c:v libx264 -bf 3 -g 30", "-c:a flac"},
                    VideoSource{"H264WithTrueHd", "-c:v libx264 -bf 3 -g 12", "-c:a truehd"},
                    VideoSource{"H264WithDts", "-c:v libx264 -bf 3 -g 30", "-c:a dca"},
                    VideoSource{"H264WithLateAc3", "-c:v libx264 -bf 3", "-c:a ac3", "0.35"},
                    VideoSource{"HevcWithEac3", "-c:v libx265 -x265-params log-level=error", "-c:a eac3"},
                    VideoSource{"Mpeg2WithAc3", "-c:v mpeg2video -bf 2 -g 15", "-c:a ac3"},
                    VideoSource{"Mpeg2WithPcm", "-c:v mpeg2video -bf 2 -g 15", "-c:a pcm_s24le"},
                    VideoSource{"Mpeg2WithLateMp2", "-c:v mpeg2video -bf 2 -g 15", "-c:a mp2", "0.2"},
                    VideoSource{"Mpeg4WithMp3", "-c:v mpeg4 -bf 2", "-c:a libmp3lame"},
                    VideoSource{"Vp9WithOpus", "-c:v libvpx-vp9", "-c:a libopus"},
                    VideoSource{"MjpegWithAlac", "-c:v mjpeg", "-c:a alac"}),
    [](const auto &test) { return std::string(test.param.name); });

namespace {

class AttachedCovers : public SourcesWithMore, public testing::WithParamInterface<std::string>
{
};

} // namespace

TEST_P(AttachedCovers, AreOverlooked)
{
    const QString audio = makeAudio(u"-c:a flac"_s);
    const QString type = QString::fromStdString(GetParam());
    make(u"cover."_s + type, words(u"-f lavfi -i testsrc=s=64x48 -frames:v 1"_s));
    make(u"source.mkv"_s,
         {u"-i"_s, audio, u"-map"_s, u"0"_s, u"-c"_s, u"copy"_s, u"-attach"_s, path(u"cover."_s + type),
          u"-metadata:s:t"_s, u"mimetype=image/"_s + type, u"-metadata:s:t"_s, u"filename=cover."_s + type});
    expectSameTracks(path(u"source.mkv"_s));
}

INSTANTIATE_TEST_SUITE_P(Matroska, AttachedCovers, testing::Values("jpeg", "png"),
                         [](const auto &test) { return test.param; });

TEST_F(SourcesWithMore, SubtitlesAndFurtherAudioAreOverlooked)
{
    const QString audio = makeAudio(u"-c:a truehd"_s);
    writeFile(path(u"words.srt"_s), "1\n00:00:00,500 --> 00:00:01,000\nLa\n");
    make(u"source.mkv"_s, {u"-i"_s,     audio,      u"-i"_s,     path(u"words.srt"_s),
                           u"-f"_s,     u"lavfi"_s, u"-i"_s,     u"sine=d=2.5"_s,
                           u"-map"_s,   u"0:a"_s,   u"-map"_s,   u"2:a"_s,
                           u"-map"_s,   u"1:s"_s,   u"-c:a:0"_s, u"copy"_s,
                           u"-c:a:1"_s, u"ac3"_s,   u"-c:s"_s,   u"ass"_s});
    expectSameTracks(path(u"source.mkv"_s));
}

TEST_F(SourcesWithMore, AFileOfAnotherKindIsRefusedInTheSameWords)
{
    writeFile(path(u"source.mkv"_s), QByteArray(5000, 'x'));
    const auto refusal = [&](const QString &ffprobe) {
        const ProgramRun run = runProgram(ffprobe, sourceProbeOptions() + QStringList{path(u"source.mkv"_s)});
        EXPECT_EQ(run.exitCode, 1);
        // An address of that run stands in it.
        return QString::fromUtf8(run.errors).remove(QRegularExpression(u" @ 0x[0-9a-f]+"_s));
    };
    const QString words = refusal(shippedTool(u"ffprobe"_s));
    EXPECT_TRUE(words.contains(u"Invalid data found when processing input"_s)) << words.toStdString();
    EXPECT_EQ(words, refusal(systemTool(u"ffprobe"_s)));
}

} // namespace tonearm::test
