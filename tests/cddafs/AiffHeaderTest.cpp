// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/AiffHeader.h"

#include "cddafs/SectorSource.h"
#include "helpers/Contents.h"
#include "helpers/DiscImage.h"
#include "helpers/Media.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QtEndian>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

quint32 numberAt(const QByteArray &bytes, qsizetype at)
{
    return qFromBigEndian<quint32>(bytes.constData() + at);
}

} // namespace

TEST(AiffHeader, HasTheSizeOfASector)
{
    for (const qint64 sectors : {0, 1, 20, 360000})
        EXPECT_EQ(aiffHeader(sectors).size(), discFrameBytes);
}

TEST(AiffHeader, TellsTheSizesOfTheFileAndOfTheSound)
{
    for (const qint64 sectors : {1, 75, 360000}) {
        const QByteArray header = aiffHeader(sectors);
        const qint64 soundBytes = sectors * discFrameBytes;
        EXPECT_EQ(header.first(4), "FORM");
        EXPECT_EQ(numberAt(header, 4), discFrameBytes + soundBytes - 8);
        EXPECT_EQ(header.mid(8, 8), "AIFFCOMM");
        EXPECT_EQ(numberAt(header, 22), sectors * 588);
        EXPECT_EQ(header.mid(discFrameBytes - 16, 4), "SSND");
        EXPECT_EQ(numberAt(header, discFrameBytes - 12), soundBytes + 8);
    }
}

TEST(AiffHeader, MakesAFileThatDecodesToTheSamples)
{
    const QTemporaryDir folder;
    const test::DiscImage image(folder.path(), {});
    const QString path = folder.filePath(u"track.aiff"_s);
    test::writeFile(path, aiffHeader(20) + test::swappedSamples(image.sound(1)));
    const QByteArray decoded =
        test::outputOf(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, path, u"-f"_s, u"s16le"_s, u"pipe:1"_s});
    EXPECT_TRUE(decoded == image.sound(1)) << decoded.size() << " bytes";
    const QByteArray probed = test::outputOf(
        u"ffprobe"_s, {u"-v"_s, u"warning"_s, u"-show_entries"_s,
                       u"stream=codec_name,sample_rate,channels,nb_frames,duration_ts:format_tags"_s,
                       u"-of"_s, u"default=nw=1"_s, path});
    EXPECT_EQ(probed,
              "codec_name=pcm_s16be\nsample_rate=44100\nchannels=2\nduration_ts=11760\nnb_frames=11760\n");
}

} // namespace tonearm
