// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/FFmpegComplaint.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(FFmpegComplaint, IsNoProgressLine)
{
    EXPECT_EQ(lastComplaint({}), std::nullopt);
    EXPECT_EQ(lastComplaint("bitrate= 131.6kbits/s\nstream_0_0_q=0.0\nout_time=00:00:01.880952\n"
                            "speed= 645x\rprogress=end\n\n"),
              std::nullopt);
}

TEST(FFmpegComplaint, IsTheLastThingSaid)
{
    EXPECT_EQ(lastComplaint("speed=1x\nno good\nout_time=00:00:01\n[a] b=c is wrong\nprogress=end\n"),
              u"[a] b=c is wrong"_s);
    EXPECT_EQ(lastComplaint("first\nsecond"), u"second"_s);
}

TEST(FFmpegComplaint, IsWithoutItsSpeaker)
{
    EXPECT_EQ(lastComplaint("[matroska,webm @ 0x55818c91c1c0] File ended prematurely\n"),
              u"File ended prematurely"_s);
    EXPECT_EQ(lastComplaint("[in#0 @ 0x1f] [flac @ 0xA0] invalid residual\n"), u"invalid residual"_s);
}

TEST(FFmpegComplaint, IsNotAboutAPicture)
{
    for (const char *speaker : {"image2", "jpeg_pipe", "png_pipe", "mjpeg", "png"}) {
        const QByteArray line = QByteArray("[") + speaker + " @ 0x55818c91c1c0] error decoding EXIF data\n";
        EXPECT_EQ(lastComplaint(line), std::nullopt) << speaker;
    }
}

TEST(FFmpegComplaint, IsNoCountOfRepetitions)
{
    EXPECT_EQ(lastComplaint("no good\n    Last message repeated 12 times\n"), u"no good"_s);
}

} // namespace tonearm
