// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/VersionText.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <vector>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

struct Case
{
    QByteArray output;
    std::optional<QString> summary;
};

} // namespace

TEST(FFmpegVersionSummary, IsMadeFromTheFirstLine)
{
    const std::vector<Case> cases{
        {"ffmpeg version 7.1 built with clang", u"ffmpeg 7.1"_s},
        {"ffmpeg version 7.1", u"ffmpeg 7.1"_s},
        {"ffmpeg version 5.1.6-0+deb12u1 Copyright (c) 2000-2024\nbuilt with gcc 12\n",
         u"ffmpeg 5.1.6-0+deb12u1"_s},
        {"\n\nffmpeg version 7.1\n", u"ffmpeg 7.1"_s},
        {"  ffmpeg   version  7.1  built", u"ffmpeg 7.1"_s},
        {"ffmpeg version", u"ffmpeg version"_s},
        {"ffmpeg version ", u"ffmpeg version "_s},
        {"ffmpeg n7.1-3 built", u"ffmpeg n7.1-3 built"_s},
        {"ffmpeg Version 7.1", u"ffmpeg Version 7.1"_s},
        {"ffmpeg versions 7.1", u"ffmpeg versions 7.1"_s},
        {"ffmpeg\tversion\t7.1", u"ffmpeg\tversion\t7.1"_s},
        {"7.1", u"7.1"_s},
        {"   \nffmpeg version 7.1", u"   "_s},
    };
    for (const Case &each : cases)
        EXPECT_EQ(ffmpegVersionSummary(each.output), each.summary) << each.output.toStdString();
}

TEST(FFmpegVersionSummary, IsAbsentWithoutALine)
{
    EXPECT_EQ(ffmpegVersionSummary({}), std::nullopt);
    EXPECT_EQ(ffmpegVersionSummary("\n\n"), std::nullopt);
}

TEST(FFmpegVersionSummary, IsAbsentForOutputThatIsNotUtf8)
{
    EXPECT_EQ(ffmpegVersionSummary("ffmpeg version 7.1\n\xff"), std::nullopt);
}

TEST(CDParanoiaVersionSummary, IsTheFirstLineThatIsNotBlankWithoutTheLibrary)
{
    const std::vector<Case> cases{
        {"cd-paranoia 10.2+2.0.1 libcdio 2.1.0", u"cd-paranoia 10.2+2.0.1"_s},
        {"cd-paranoia 10.2+2.0.1 libcdio 2.1.0\nmore\n", u"cd-paranoia 10.2+2.0.1"_s},
        {"cd-paranoia libcdio 1 libcdio 2", u"cd-paranoia"_s},
        {"cd-paranoia 10.2", u"cd-paranoia 10.2"_s},
        {"\n\n  \n \t \ncd-paranoia 10.2\n", u"cd-paranoia 10.2"_s},
        {"  cd-paranoia 10.2  \n", u"  cd-paranoia 10.2  "_s},
        {"libcdio 2.1.0", u"libcdio 2.1.0"_s},
        {" libcdio 2.1.0", u""_s},
        {"cd-paranoia 10.2\tlibcdio 2.1.0", u"cd-paranoia 10.2\tlibcdio 2.1.0"_s},
    };
    for (const Case &each : cases)
        EXPECT_EQ(cdParanoiaVersionSummary(each.output), each.summary) << each.output.toStdString();
}

TEST(CDParanoiaVersionSummary, IsAbsentWithoutALine)
{
    EXPECT_EQ(cdParanoiaVersionSummary({}), std::nullopt);
    EXPECT_EQ(cdParanoiaVersionSummary("\n \n\t\n"), std::nullopt);
}

TEST(CDParanoiaVersionSummary, IsAbsentForOutputThatIsNotUtf8)
{
    EXPECT_EQ(cdParanoiaVersionSummary("cd-paranoia 10.2\n\xff"), std::nullopt);
}

} // namespace tonearm
