// SPDX-License-Identifier: GPL-3.0-or-later
#include "audiotools/AudioTools.h"
#include "audiotools/ToolComparison.h"
#include "helpers/Media.h"

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 oneSecond = 44100;

/// Tracks that were read from a disc, by the type of their file.
class DiscTracks : public ToolComparison, public testing::WithParamInterface<std::string>
{
protected:
    void expectSameTrack(const QString &cover)
    {
        const TwoFiles tracks =
            expectSameFile(encodingArguments({.source = track(), .cover = cover}), u"track.flac"_s);
        const FlacSummary summary = flacSummary(tracks.shipped);
        EXPECT_EQ(summary.sampleCount, oneSecond);
        EXPECT_EQ(summary.bitsPerSample, 16);
        EXPECT_EQ(decodedMd5(tracks.shipped, 16), summary.md5);
        EXPECT_EQ(decodedMd5(track(), 16), summary.md5);
    }

    QString track()
    {
        const QString type = QString::fromStdString(GetParam());
        const bool isBigEndian = type == u"aiff"_s;
        const QString file = path(u"track."_s + type);
        makeMedia(file, {.audioCodec = words(isBigEndian ? u"-c:a pcm_s16be"_s : u"-c:a pcm_s16le"_s),
                         .duration = 1});
        return file;
    }
};

} // namespace

TEST_P(DiscTracks, AreEncodedAsByTheSystem)
{
    expectSameTrack({});
}

TEST_P(DiscTracks, AreEncodedWithACoverAsByTheSystem)
{
    for (const QString &type : {u"jpg"_s, u"png"_s}) {
        makePicture(path(u"cover."_s + type), 64, 48);
        expectSameTrack(path(u"cover."_s + type));
    }
}

INSTANTIATE_TEST_SUITE_P(Rips, DiscTracks, testing::Values("aiff", "wav"),
                         [](const auto &test) { return test.param; });

namespace {

struct NamedCover
{
    /// A test name: letters and digits.
    const char *test;
    /// What the picture is, as an extension and as ffprobe's codec.
    const char *type;
    const char *codec;
    /// What it is called.
    const char *name;
};

void PrintTo(const NamedCover &cover, std::ostream *out)
{
    *out << cover.test;
}

class MisnamedCovers : public ToolComparison, public testing::WithParamInterface<NamedCover>
{
};

} // namespace

// What a picture holds decides, and not its name.
TEST_P(MisnamedCovers, AreTakenForWhatTheyAre)
{
    const QString cover = path(QString::fromLatin1(GetParam().name));
    make(u"cover."_s + QString::fromLatin1(GetParam().type),
         words(u"-f lavfi -i testsrc=s=64x48 -frames:v 1"_s));
    ASSERT_TRUE(QFile::rename(path(u"cover."_s + QString::fromLatin1(GetParam().type)), cover));
    makeMedia(path(u"track.wav"_s), {.audioCodec = words(u"-c:a pcm_s16le"_s), .duration = 1});

    const TwoFiles tracks =
        expectSameFile(encodingArguments({.source = path(u"track.wav"_s), .cover = cover}), u"track.flac"_s);
    const QByteArray tags = expectSameProbe(tagProbeOptions(), tracks.shipped);
    const QByteArray line = "\"codec_name\": \"" + QByteArray(GetParam().codec) + '"';
    EXPECT_TRUE(tags.contains(line)) << tags.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Covers, MisnamedCovers,
                         testing::Values(NamedCover{"PngNamedJpg", "png", "png", "Front.JPG"},
                                         NamedCover{"JpegNamedPng", "jpg", "mjpeg", "front.png"},
                                         NamedCover{"JpegNamedJpeg", "jpg", "mjpeg", "front.jpeg"},
                                         NamedCover{"BmpNamedJpg", "bmp", "bmp", "front.jpg"},
                                         NamedCover{"TiffNamedJpg", "tiff", "tiff", "front.jpg"}),
                         [](const auto &test) { return std::string(test.param.test); });

} // namespace tonearm::test
