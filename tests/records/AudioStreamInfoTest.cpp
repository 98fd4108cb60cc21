// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/records/AudioStreamInfo.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

struct CodecCase
{
    QString codec;
    std::optional<QString> profile;
    QString display;
    bool isLossless;
};

const QString lossyNote =
    u"The source is lossy. Encoding to FLAC preserves it exactly as it is, but can't recover "
    "detail the disc's own codec discarded."_s;
const QString cdNote =
    u"The source is lossless at CD quality — 16-bit, 44.1 kHz — so the FLAC files will be a "
    "bit-exact copy."_s;
const QString highNote =
    u"The source is lossless and beyond CD quality, so the FLAC files will be a bit-exact copy "
    "at full resolution."_s;

std::optional<QString> layoutText(const QString &layout, std::optional<qint64> count = {})
{
    return AudioStreamInfo{.codecName = u"flac"_s, .channelCount = count, .channelLayout = layout}
        .channelText();
}

QString losslessNote(std::optional<qint64> depth, std::optional<qint64> rate)
{
    return AudioStreamInfo{.codecName = u"flac"_s, .sampleRateHertz = rate, .bitDepth = depth}.qualityNote();
}

} // namespace

TEST(AudioStreamInfo, NamesCodecsForPeopleAndKnowsWhichLoseNothing)
{
    const QList<CodecCase> cases = {
        {u"flac"_s, {}, u"FLAC"_s, true},
        {u"truehd"_s, {}, u"Dolby TrueHD"_s, true},
        {u"mlp"_s, {}, u"MLP"_s, true},
        {u"alac"_s, {}, u"ALAC"_s, true},
        {u"ac3"_s, {}, u"Dolby Digital"_s, false},
        {u"eac3"_s, {}, u"Dolby Digital Plus"_s, false},
        {u"aac"_s, {}, u"AAC"_s, false},
        {u"mp3"_s, {}, u"MP3"_s, false},
        {u"opus"_s, {}, u"Opus"_s, false},
        {u"vorbis"_s, {}, u"Vorbis"_s, false},
        {u"wmalossless"_s, {}, u"WMALOSSLESS"_s, true},
        {u"tta"_s, {}, u"TTA"_s, true},
        {u"wavpack"_s, {}, u"WAVPACK"_s, true},
        {u"wmav2"_s, {}, u"WMAV2"_s, false},
        {u"pcm_s16le"_s, {}, u"LPCM"_s, true},
        {u"pcm_bluray"_s, {}, u"LPCM"_s, true},
        {u"pcm_"_s, {}, u"LPCM"_s, true},
        {u"pcm"_s, {}, u"PCM"_s, false},
        {u"adpcm_ms"_s, {}, u"ADPCM_MS"_s, false},
        {u"aac"_s, u"MA"_s, u"AAC"_s, false},
    };
    for (const CodecCase &each : cases) {
        const AudioStreamInfo stream{.codecName = each.codec, .profile = each.profile};
        EXPECT_EQ(stream.codecDisplayName(), each.display) << each.codec.toStdString();
        EXPECT_EQ(stream.isLossless(), each.isLossless) << each.codec.toStdString();
    }
}

TEST(AudioStreamInfo, TellsDtsFormsApartByTheirProfile)
{
    const QList<CodecCase> cases = {
        {u"dts"_s, u"DTS-HD MA"_s, u"DTS-HD MA"_s, true},
        {u"dts"_s, u"DTS-HD MA + DTS:X"_s, u"DTS-HD MA + DTS:X"_s, true},
        {u"dts"_s, u"dts-hd master audio"_s, u"dts-hd master audio"_s, true},
        {u"dts"_s, u"DTS-HD HRA"_s, u"DTS-HD HRA"_s, false},
        {u"dts"_s, u"DTS"_s, u"DTS"_s, false},
        {u"dts"_s, u""_s, u"DTS"_s, false},
        {u"dts"_s, {}, u"DTS"_s, false},
    };
    for (const CodecCase &each : cases) {
        const AudioStreamInfo stream{.codecName = each.codec, .profile = each.profile};
        EXPECT_EQ(stream.codecDisplayName(), each.display) << each.display.toStdString();
        EXPECT_EQ(stream.isLossless(), each.isLossless) << each.display.toStdString();
    }
}

TEST(AudioStreamInfo, WritesSampleRatesInKilohertzWithoutIdleZeros)
{
    const QList<std::pair<qint64, QString>> cases = {
        {48000, u"48 kHz"_s},    {192000, u"192 kHz"_s},   {44100, u"44.1 kHz"_s},   {88200, u"88.2 kHz"_s},
        {22050, u"22.05 kHz"_s}, {11025, u"11.025 kHz"_s}, {44056, u"44.056 kHz"_s}, {1000, u"1 kHz"_s},
        {100, u"0.1 kHz"_s},     {1, u"0.001 kHz"_s},
    };
    for (const auto &[hertz, text] : cases)
        EXPECT_EQ(AudioStreamInfo{.sampleRateHertz = hertz}.sampleRateText(), text);
}

TEST(AudioStreamInfo, HasNoSampleRateTextBelowOneHertz)
{
    EXPECT_EQ(AudioStreamInfo{}.sampleRateText(), std::nullopt);
    EXPECT_EQ(AudioStreamInfo{.sampleRateHertz = 0}.sampleRateText(), std::nullopt);
    EXPECT_EQ(AudioStreamInfo{.sampleRateHertz = -44100}.sampleRateText(), std::nullopt);
}

TEST(AudioStreamInfo, TakesTheLayoutUpToItsBracket)
{
    EXPECT_EQ(layoutText(u"mono"_s), u"Mono"_s);
    EXPECT_EQ(layoutText(u"stereo"_s), u"Stereo"_s);
    EXPECT_EQ(layoutText(u"stereo(downmix)"_s), u"Stereo"_s);
    EXPECT_EQ(layoutText(u"5.1(side)"_s), u"5.1"_s);
    EXPECT_EQ(layoutText(u"7.1"_s, 2), u"7.1"_s);
    EXPECT_EQ(layoutText(u"(side)"_s), u"side)"_s);
    EXPECT_EQ(layoutText(u"quad"_s, 4), u"quad"_s);
}

TEST(AudioStreamInfo, CountsChannelsWhereNoLayoutIsKnown)
{
    EXPECT_EQ(layoutText(u""_s, 1), u"Mono"_s);
    EXPECT_EQ(layoutText(u"(("_s, 2), u"Stereo"_s);
    EXPECT_EQ(AudioStreamInfo{.channelCount = 1}.channelText(), u"Mono"_s);
    EXPECT_EQ(AudioStreamInfo{.channelCount = 2}.channelText(), u"Stereo"_s);
    EXPECT_EQ(AudioStreamInfo{.channelCount = 6}.channelText(), u"6 channels"_s);
    EXPECT_EQ(AudioStreamInfo{.channelCount = 0}.channelText(), std::nullopt);
    EXPECT_EQ(AudioStreamInfo{.channelCount = -1}.channelText(), std::nullopt);
    EXPECT_EQ(AudioStreamInfo{}.channelText(), std::nullopt);
}

TEST(AudioStreamInfo, SumsUpWhatIsKnownInOneLine)
{
    const AudioStreamInfo stream{.codecName = u"flac"_s,
                                 .sampleRateHertz = 96000,
                                 .bitDepth = 24,
                                 .channelCount = 6,
                                 .channelLayout = u"5.1(side)"_s};
    EXPECT_EQ(stream.summaryLine(), u"FLAC · 24-bit · 96 kHz · 5.1"_s);
    EXPECT_EQ(AudioStreamInfo{.codecName = u"opus"_s}.summaryLine(), u"Opus"_s);
}

TEST(AudioStreamInfo, ShowsTheBitRateOnlyWhereNoBitDepthIsKnown)
{
    AudioStreamInfo stream{.codecName = u"truehd"_s, .bitDepth = 24, .bitRateBitsPerSecond = 4608999};
    EXPECT_EQ(stream.summaryLine(), u"Dolby TrueHD · 24-bit"_s);
    stream.bitDepth = 0;
    EXPECT_EQ(stream.summaryLine(), u"Dolby TrueHD"_s);
    stream.bitDepth.reset();
    EXPECT_EQ(stream.summaryLine(), u"Dolby TrueHD · 4608 kbps"_s);
    stream.bitRateBitsPerSecond = 999;
    EXPECT_EQ(stream.summaryLine(), u"Dolby TrueHD · 0 kbps"_s);
    stream.bitRateBitsPerSecond = 0;
    EXPECT_EQ(stream.summaryLine(), u"Dolby TrueHD"_s);
}

TEST(AudioStreamInfo, NotesWhatEncodingMeansForALossySource)
{
    EXPECT_EQ((AudioStreamInfo{.codecName = u"ac3"_s, .sampleRateHertz = 48000}.qualityNote()), lossyNote);
    EXPECT_EQ((AudioStreamInfo{.codecName = u"dts"_s, .bitDepth = 24}.qualityNote()), lossyNote);
}

TEST(AudioStreamInfo, CallsALosslessSourceCdQualityUpToSixteenBitsAndCdRate)
{
    EXPECT_EQ(losslessNote(16, 44100), cdNote);
    EXPECT_EQ(losslessNote({}, {}), cdNote);
    EXPECT_EQ(losslessNote({}, 22050), cdNote);
    EXPECT_EQ(losslessNote(8, 0), cdNote);
    EXPECT_EQ(losslessNote(16, 44101), highNote);
    EXPECT_EQ(losslessNote({}, 48000), highNote);
    EXPECT_EQ(losslessNote(17, {}), highNote);
    EXPECT_EQ(losslessNote(24, 44100), highNote);
}

TEST(AudioStreamInfo, EqualsOnlyWhereEveryFieldDoes)
{
    const AudioStreamInfo stream{.codecName = u"flac"_s, .bitDepth = 16};
    AudioStreamInfo other = stream;
    EXPECT_EQ(stream, other);
    other.bitDepth.reset();
    EXPECT_NE(stream, other);
    other = stream;
    other.profile = u""_s;
    EXPECT_NE(stream, other);
}

} // namespace tonearm
