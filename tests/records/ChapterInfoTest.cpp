// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/records/ChapterInfo.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <limits>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QString durationText(double start, double end)
{
    return ChapterInfo{.startSeconds = start, .endSeconds = end}.durationText();
}

} // namespace

TEST(ChapterInfo, StartsWithTheSourceTitleAsItsMappedTitle)
{
    const ChapterInfo chapter{.id = 1, .startSeconds = 0, .endSeconds = 9, .originalTitle = u"Intro"_s};
    EXPECT_EQ(chapter.mappedTitle, u"Intro"_s);

    ChapterInfo renamed = chapter;
    renamed.mappedTitle = u"Prelude"_s;
    EXPECT_EQ(renamed.originalTitle, u"Intro"_s);
    EXPECT_NE(renamed, chapter);
}

TEST(ChapterInfo, WritesItsDurationAsMinutesAndSeconds)
{
    EXPECT_EQ(durationText(10, 257), u"4:07"_s);
    EXPECT_EQ(durationText(0, 59), u"0:59"_s);
    EXPECT_EQ(durationText(5, 5), u"0:00"_s);
}

TEST(ChapterInfo, KeepsAnHourInMinutes)
{
    EXPECT_EQ(durationText(0, 3600), u"60:00"_s);
    EXPECT_EQ(durationText(0, 36005), u"600:05"_s);
}

TEST(ChapterInfo, RoundsItsDurationToTheNearestSecond)
{
    EXPECT_EQ(durationText(0, 59.4999), u"0:59"_s);
    EXPECT_EQ(durationText(0, 59.5), u"1:00"_s);
    EXPECT_EQ(durationText(0, 0.5), u"0:01"_s);
    EXPECT_EQ(durationText(0, 2.5), u"0:03"_s);
}

TEST(ChapterInfo, HasNoDurationIfItEndsBeforeItStarts)
{
    EXPECT_EQ(durationText(20, 10), u"0:00"_s);
}

TEST(ChapterInfo, SurvivesTimesThatAreNone)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double largest = std::numeric_limits<double>::max();
    const QString longest = u"16666666666666:40"_s;
    EXPECT_EQ(durationText(0, std::numeric_limits<double>::quiet_NaN()), u"0:00"_s);
    EXPECT_EQ(durationText(infinity, infinity), u"0:00"_s);
    EXPECT_EQ(durationText(0, -infinity), u"0:00"_s);
    EXPECT_EQ(durationText(0, infinity), longest);
    EXPECT_EQ(durationText(-largest, largest), longest);
}

} // namespace tonearm
