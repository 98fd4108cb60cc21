// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/ChapterPreview.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

ChapterInfo chapterFrom(double start, double end)
{
    return {.startSeconds = start, .endSeconds = end};
}

} // namespace

TEST(ChapterPreview, IsAsLongAsAShortChapterAndNoLongerThanTheLimit)
{
    EXPECT_EQ(previewDuration(chapterFrom(0, 180), 20), 20);
    EXPECT_EQ(previewDuration(chapterFrom(100, 120), 20), 20);
    EXPECT_EQ(previewDuration(chapterFrom(30, 38), 20), 8);
}

TEST(ChapterPreview, HasNoLengthIfTheChapterEndsBeforeItStarts)
{
    EXPECT_EQ(previewDuration(chapterFrom(30, 20), 20), 0);
}

TEST(ChapterPreview, HasFfmpegCutSixteenBitStereoFromTheFirstAudioStream)
{
    EXPECT_EQ(
        previewArguments(chapterFrom(12.5, 99), QUrl::fromLocalFile(u"/in/a b.mkv"_s), 20, u"/out/p.wav"_s),
        (QStringList{u"-hide_banner"_s, u"-v"_s,        u"error"_s,     u"-accurate_seek"_s,
                     u"-ss"_s,          u"12.500000"_s, u"-i"_s,        u"/in/a b.mkv"_s,
                     u"-t"_s,           u"20.000000"_s, u"-map"_s,      u"0:a:0"_s,
                     u"-vn"_s,          u"-c:a"_s,      u"pcm_s16le"_s, u"-ar"_s,
                     u"44100"_s,        u"-ac"_s,       u"2"_s,         u"-y"_s,
                     u"/out/p.wav"_s}));
}

TEST(ChapterPreview, TellsFfmpegTimesToTheMicrosecond)
{
    const QStringList arguments =
        previewArguments(chapterFrom(1.0000004, 2), QUrl(u"file:///in.mkv"_s), 1.0 / 3, u"/out.wav"_s);
    EXPECT_EQ(arguments[5], u"1.000000"_s);
    EXPECT_EQ(arguments[9], u"0.333333"_s);
}

} // namespace tonearm
