// SPDX-License-Identifier: GPL-3.0-or-later
// Jobs on files with each kind of audio, from the file to the finished FLACs.
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/Sources.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ChapterMark;
using test::MediaRecipe;
using test::ModelFixture;

namespace {

struct SourceKind
{
    std::string name;
    QStringList codec;
    int sampleRate;
    QString channelLayout;
    /// The line that describes the source on screen.
    QString summary;
    /// Tags that ffmpeg adds on its own.
    QStringList extraTags = {};
};

// GoogleTest's name.
void PrintTo(const SourceKind &kind, std::ostream *out) // NOLINT(readability-identifier-naming)
{
    *out << kind.name;
}

QStringList encodedAs(const QString &codec, const QStringList &options = {})
{
    return QStringList{u"-c:a"_s, codec} + options;
}

// The mask of channels that the FLAC format doesn't list.
const QString backChannels = u"WAVEFORMATEXTENSIBLE_CHANNEL_MASK=0x3f"_s;

const QList<SourceKind> kinds = {
    {"Flac16", test::codec::flac16(), 44100, u"stereo"_s, u"FLAC · 16-bit · 44.1 kHz · Stereo"_s},
    {"Flac24", test::codec::flac24(), 96000, u"stereo"_s, u"FLAC · 24-bit · 96 kHz · Stereo"_s},
    {"FlacMono", test::codec::flac16(), 48000, u"mono"_s, u"FLAC · 16-bit · 48 kHz · Mono"_s},
    {"FlacSurround",
     test::codec::flac16(),
     48000,
     u"5.1"_s,
     u"FLAC · 16-bit · 48 kHz · 5.1"_s,
     {backChannels}},
    {"FlacSideSurround", test::codec::flac24(), 48000, u"5.1(side)"_s, u"FLAC · 24-bit · 48 kHz · 5.1"_s},
    {"FlacEight", test::codec::flac24(), 48000, u"7.1"_s, u"FLAC · 24-bit · 48 kHz · 7.1"_s},
    {"Pcm16", test::codec::pcm16(), 44100, u"stereo"_s, u"LPCM · 16-bit · 44.1 kHz · Stereo"_s},
    {"Pcm24", test::codec::pcm24(), 96000, u"stereo"_s, u"LPCM · 24-bit · 96 kHz · Stereo"_s},
    {"Pcm24BigEndian", encodedAs(u"pcm_s24be"_s), 48000, u"stereo"_s, u"LPCM · 24-bit · 48 kHz · Stereo"_s},
    {"PcmEight", test::codec::pcm24(), 48000, u"7.1"_s, u"LPCM · 24-bit · 48 kHz · 8 channels"_s},
    {"TrueHD", test::codec::trueHD(), 48000, u"stereo"_s, u"Dolby TrueHD · 24-bit · 48 kHz · Stereo"_s},
    {"TrueHDSurround", test::codec::trueHD(), 48000, u"5.1(side)"_s,
     u"Dolby TrueHD · 24-bit · 48 kHz · 5.1"_s},
    {"Mlp", encodedAs(u"mlp"_s), 96000, u"stereo"_s, u"MLP · 24-bit · 96 kHz · Stereo"_s},
    {"Alac", test::codec::alac(), 44100, u"stereo"_s, u"ALAC · 24-bit · 44.1 kHz · Stereo"_s},
    {"Dts", test::codec::dts(), 48000, u"5.1(side)"_s, u"DTS · 48 kHz · 5.1 · 1411 kbps"_s},
    {"Ac3", test::codec::ac3(), 48000, u"5.1(side)"_s, u"Dolby Digital · 48 kHz · 5.1 · 448 kbps"_s},
    {"Eac3", encodedAs(u"eac3"_s), 48000, u"stereo"_s, u"Dolby Digital Plus · 48 kHz · Stereo · 192 kbps"_s},
    {"Aac", encodedAs(u"aac"_s), 44100, u"stereo"_s, u"AAC · 44.1 kHz · Stereo"_s},
    {"Opus", encodedAs(u"libopus"_s), 48000, u"stereo"_s, u"Opus · 48 kHz · Stereo"_s},
    {"Vorbis", encodedAs(u"libvorbis"_s), 44100, u"stereo"_s, u"Vorbis · 44.1 kHz · Stereo"_s},
};

class JobOnSource : public testing::TestWithParam<SourceKind>
{
};

} // namespace

TEST_P(JobOnSource, GivesWhatFfmpegGivesByHand)
{
    const SourceKind &kind = GetParam();
    const QList<ChapterMark> chapters = {{0, 0.7, u"One"_s}, {0.7, 1.5, u"Two"_s}};
    const QString source =
        test::sharedSource(QString::fromStdString(kind.name), {.audioCodec = kind.codec,
                                                               .sampleRate = kind.sampleRate,
                                                               .channelLayout = kind.channelLayout,
                                                               .duration = 1.5,
                                                               .chapters = chapters});
    ModelFixture fixture;
    fixture.prepareJob(source);
    EXPECT_EQ(fixture->sourceAudio.value().value().summaryLine(), kind.summary);
    EXPECT_EQ(fixture->statusText(), u"Found 2 chapters."_s);
    fixture.runJob();

    EXPECT_EQ(fixture->statusText(), u"Encoded 2 tracks to out."_s);
    for (qsizetype index = 0; index < chapters.size(); ++index) {
        const QString number = QString::number(index + 1);
        const QString output = fixture.outputPath(u"0%1-%2.flac"_s.arg(number, chapters[index].title));
        EXPECT_EQ(test::decodedAudio(output), test::bareCut(source, chapters[index]));
        EXPECT_EQ(test::tagsWithoutEncoder(output),
                  (QStringList{u"TRACKNUMBER="_s + number, u"TRACKTOTAL=2"_s} + kind.extraTags +
                   QStringList{u"title="_s + chapters[index].title}));
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, JobOnSource, testing::ValuesIn(kinds),
                         [](const auto &kind) { return kind.param.name; });

} // namespace tonearm
