// SPDX-License-Identifier: GPL-3.0-or-later
#include "audiotools/AudioTools.h"
#include "audiotools/ToolComparison.h"
#include "helpers/Media.h"

#include <QFileInfo>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

/// A Matroska source, told by the codec of its audio.
struct AudioSource
{
    /// A test name: letters and digits.
    const char *name;
    /// ffmpeg's options for the encoder.
    const char *codec;
    int sampleRate;
    const char *layout;
};

void PrintTo(const AudioSource &source, std::ostream *out)
{
    *out << source.name;
}

class ChapterSources : public ToolComparison, public testing::WithParamInterface<AudioSource>
{
protected:
    /// A source of 2.5 seconds whose second chapter lasts from 0.7 to 1.65.
    QString makeSource() const
    {
        const QString source = path(u"source.mkv"_s);
        makeMedia(source, {.audioCodec = words(QString::fromLatin1(GetParam().codec)),
                           .sampleRate = GetParam().sampleRate,
                           .channelLayout = QString::fromLatin1(GetParam().layout),
                           .duration = 2.5,
                           .chapters = {{0, 0.7, u"Overture"_s}, {0.7, 1.65, u"Été"_s}, {1.65, 2.5, {}}},
                           .metadata = {u"title=A Concert"_s, u"ARTIST=Anna"_s}});
        return source;
    }

    void expectSameProbe(const QString &source) const
    {
        const QByteArray reply = ToolComparison::expectSameProbe(sourceProbeOptions(), source);
        EXPECT_TRUE(reply.contains("\"title\": \"Overture\""));
        EXPECT_TRUE(reply.contains("\"sample_fmt\": "));
    }

    void expectSameTrack(const QString &source) const
    {
        const auto [shipped, system] = expectSameFile(
            encodingArguments({.source = source, .start = u"0.700000"_s, .length = u"0.950000"_s}),
            u"track.flac"_s);
        const FlacSummary summary = flacSummary(shipped);
        EXPECT_EQ(summary.md5, flacSummary(system).md5);
        EXPECT_EQ(decodedMd5(shipped, summary.bitsPerSample), summary.md5);
        EXPECT_NEAR(static_cast<double>(summary.sampleCount), chapterSeconds * GetParam().sampleRate,
                    overlappingFrames);
    }

    void expectSamePreview(const QString &source) const
    {
        const QStringList arguments =
            words(u"-hide_banner -v error -accurate_seek -ss 0.700000 -i"_s) + QStringList{source} +
            words(u"-t 0.950000 -map 0:a:0 -vn -c:a pcm_s16le -ar 44100 -ac 2 -y"_s);
        const TwoFiles files = expectSameFile(arguments, u"preview.wav"_s);
        constexpr double previewRate = 44100;
        constexpr double bytesPerSample = 4;
        EXPECT_NEAR(static_cast<double>(QFileInfo(files.shipped).size()) / bytesPerSample,
                    chapterSeconds * previewRate, overlappingFrames);
    }

private:
    static constexpr double chapterSeconds = 0.95;
    /// Samples that a codec can swallow at a cut, when it needs the frame before for them.
    static constexpr double overlappingFrames = 4096;
};

} // namespace

TEST_P(ChapterSources, AreProbedCutAndPreviewedAsByTheSystem)
{
    const QString source = makeSource();
    expectSameProbe(source);
    expectSameTrack(source);
    expectSamePreview(source);
}

INSTANTIATE_TEST_SUITE_P(
    Matroska, ChapterSources,
    testing::Values(
        AudioSource{"Flac16", "-c:a flac -sample_fmt s16", 44100, "stereo"},
        AudioSource{"Flac24", "-c:a flac -sample_fmt s32 -bits_per_raw_sample 24", 96000, "stereo"},
        AudioSource{"FlacMono", "-c:a flac", 48000, "mono"}, AudioSource{"Flac51", "-c:a flac", 48000, "5.1"},
        AudioSource{"Flac71", "-c:a flac", 48000, "7.1"},
        AudioSource{"PcmS16le", "-c:a pcm_s16le", 44100, "stereo"},
        AudioSource{"PcmS24le", "-c:a pcm_s24le", 96000, "stereo"},
        AudioSource{"PcmS24le71", "-c:a pcm_s24le", 96000, "7.1"},
        AudioSource{"PcmS32le", "-c:a pcm_s32le", 48000, "stereo"},
        AudioSource{"PcmS16be", "-c:a pcm_s16be", 48000, "stereo"},
        AudioSource{"PcmS24be", "-c:a pcm_s24be", 48000, "5.1"},
        AudioSource{"PcmS32be", "-c:a pcm_s32be", 48000, "stereo"},
        AudioSource{"PcmU8", "-c:a pcm_u8", 48000, "stereo"},
        AudioSource{"PcmF32", "-c:a pcm_f32le", 48000, "stereo"},
        AudioSource{"PcmF64", "-c:a pcm_f64le", 48000, "stereo"},
        AudioSource{"PcmAlaw", "-c:a pcm_alaw", 48000, "stereo"},
        AudioSource{"PcmMulaw", "-c:a pcm_mulaw", 48000, "stereo"},
        AudioSource{"TrueHd", "-c:a truehd", 48000, "stereo"},
        AudioSource{"TrueHd51", "-c:a truehd", 96000, "5.1(side)"},
        AudioSource{"Mlp", "-c:a mlp", 48000, "stereo"}, AudioSource{"Mlp51", "-c:a mlp", 96000, "5.1(side)"},
        AudioSource{"Dts", "-c:a dca", 48000, "stereo"}, AudioSource{"Dts51", "-c:a dca", 48000, "5.1(side)"},
        AudioSource{"Ac3", "-c:a ac3", 48000, "stereo"}, AudioSource{"Ac351", "-c:a ac3", 48000, "5.1(side)"},
        AudioSource{"Eac351", "-c:a eac3", 48000, "5.1(side)"},
        AudioSource{"Aac", "-c:a aac", 44100, "stereo"}, AudioSource{"Aac51", "-c:a aac", 48000, "5.1"},
        AudioSource{"Aac71", "-c:a aac", 48000, "7.1"},
        AudioSource{"Alac16", "-c:a alac -sample_fmt s16p", 44100, "stereo"},
        AudioSource{"Alac2451", "-c:a alac -sample_fmt s32p", 48000, "5.1"},
        AudioSource{"Opus", "-c:a libopus", 48000, "stereo"},
        AudioSource{"Opus51", "-c:a libopus", 48000, "5.1"},
        AudioSource{"Vorbis", "-c:a libvorbis", 44100, "stereo"},
        AudioSource{"Mp3", "-c:a libmp3lame", 44100, "stereo"},
        AudioSource{"Mp2", "-c:a mp2", 48000, "stereo"},
        AudioSource{"WavPack16", "-c:a wavpack -sample_fmt s16p", 44100, "stereo"},
        AudioSource{"WavPack2451", "-c:a wavpack -sample_fmt s32p", 96000, "5.1"},
        AudioSource{"WavPackFloat", "-c:a wavpack -sample_fmt fltp", 44100, "stereo"},
        AudioSource{"Tta16", "-c:a tta -sample_fmt s16", 44100, "stereo"},
        AudioSource{"Tta2471", "-c:a tta -sample_fmt s32", 48000, "7.1"},
        AudioSource{"Wma1", "-c:a wmav1", 44100, "stereo"},
        AudioSource{"Wma2", "-c:a wmav2", 44100, "stereo"},
        AudioSource{"AdpcmMs", "-c:a adpcm_ms", 44100, "stereo"},
        AudioSource{"AdpcmIma", "-c:a adpcm_ima_wav", 44100, "stereo"}),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace tonearm::test
