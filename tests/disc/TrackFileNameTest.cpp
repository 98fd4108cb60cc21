// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/TrackFileName.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

std::optional<TrackFileName> untitled(qint64 number)
{
    return TrackFileName{.number = number};
}

std::optional<TrackFileName> titled(qint64 number, const QString &title)
{
    return TrackFileName{.number = number, .title = title};
}

} // namespace

TEST(TrackFileName, HasANumberAndATitle)
{
    EXPECT_EQ(TrackFileName::parse(u"7 Some Title.aiff"_s), titled(7, u"Some Title"_s));
    EXPECT_EQ(TrackFileName::parse(u"12 Ünter Wäldern.aiff"_s), titled(12, u"Ünter Wäldern"_s));
}

TEST(TrackFileName, HasNoTitleButThePlaceholder)
{
    EXPECT_EQ(TrackFileName::parse(u"1 Audio Track.aiff"_s), untitled(1));
    EXPECT_EQ(TrackFileName::parse(u"1 Audio Track 2.aiff"_s), titled(1, u"Audio Track 2"_s));
    EXPECT_EQ(TrackFileName::parse(u"1 audio track.aiff"_s), titled(1, u"audio track"_s));
}

TEST(TrackFileName, MayBeANumberAlone)
{
    EXPECT_EQ(TrackFileName::parse(u"03.aiff"_s), untitled(3));
    EXPECT_EQ(TrackFileName::parse(u"3 \t .aiff"_s), untitled(3));
}

TEST(TrackFileName, BelongsToNoTrackWithoutANumber)
{
    EXPECT_EQ(TrackFileName::parse(u"Bonus.aiff"_s), std::nullopt);
    EXPECT_EQ(TrackFileName::parse(u" 1 Song.aiff"_s), std::nullopt);
    EXPECT_EQ(TrackFileName::parse(u"-1 Song.aiff"_s), std::nullopt);
    EXPECT_EQ(TrackFileName::parse(u".aiff"_s), std::nullopt);
}

TEST(TrackFileName, BelongsToNoTrackWhenItsNumberIsNoDecimalInteger)
{
    EXPECT_EQ(TrackFileName::parse(u"1½ Song.aiff"_s), std::nullopt);
    EXPECT_EQ(TrackFileName::parse(u"Ⅳ Song.aiff"_s), std::nullopt);
    EXPECT_EQ(TrackFileName::parse(u"99999999999999999999 Song.aiff"_s), std::nullopt);
}

TEST(TrackFileName, HasItsExtensionInAnyCase)
{
    EXPECT_EQ(TrackFileName::parse(u"1 Song.AIFF"_s), titled(1, u"Song"_s));
    EXPECT_EQ(TrackFileName::parse(u"1 Song.Aiff"_s), titled(1, u"Song"_s));
    EXPECT_EQ(TrackFileName::parse(u"1 Song.aif"_s), std::nullopt);
    EXPECT_EQ(TrackFileName::parse(u"1 Song.aiff.txt"_s), std::nullopt);
    EXPECT_EQ(TrackFileName::parse(u"1 Songaiff"_s), std::nullopt);
}

TEST(TrackFileName, KeepsPointsAndNumbersInTheTitle)
{
    EXPECT_EQ(TrackFileName::parse(u"1 Mr. E. (Pt. 2).aiff"_s), titled(1, u"Mr. E. (Pt. 2)"_s));
    EXPECT_EQ(TrackFileName::parse(u"3 99 Balloons.aiff"_s), titled(3, u"99 Balloons"_s));
    EXPECT_EQ(TrackFileName::parse(u"3Song.aiff"_s), titled(3, u"Song"_s));
    EXPECT_EQ(TrackFileName::parse(u"3 \t Song \t.aiff"_s), titled(3, u"Song"_s));
}

} // namespace tonearm
