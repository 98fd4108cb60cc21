// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/DiscInfo.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

DiscInfo discOf(const QList<qint64> &frameCounts)
{
    DiscInfo disc;
    for (const qint64 frames : frameCounts)
        disc.tracks.append({.number = disc.tracks.size() + 1, .frameCount = frames});
    return disc;
}

DiscInfo discTitled(const std::optional<QString> &title)
{
    DiscInfo disc = discOf({75, 75});
    disc.tracks[1].title = title;
    return disc;
}

} // namespace

TEST(DiscInfo, HasTitlesAsSoonAsOneTrackHasOne)
{
    EXPECT_FALSE(discTitled(std::nullopt).hasDiscTitles());
    EXPECT_FALSE(discTitled(u""_s).hasDiscTitles());
    EXPECT_TRUE(discTitled(u" "_s).hasDiscTitles());
    EXPECT_TRUE(discTitled(u"Song"_s).hasDiscTitles());
    EXPECT_FALSE(DiscInfo().hasDiscTitles());
}

TEST(DiscInfo, TellsTheTotalDurationInMinutesAndSeconds)
{
    EXPECT_EQ(DiscInfo().totalDurationText(), u"0:00"_s);
    EXPECT_EQ(discOf({75 * 61}).totalDurationText(), u"1:01"_s);
    EXPECT_EQ(discOf({75 * 60 * 70, 75 * 309}).totalDurationText(), u"75:09"_s);
}

TEST(DiscInfo, RoundsTheSumAndNotEachTrack)
{
    EXPECT_EQ(discOf({37}).totalDurationText(), u"0:00"_s);
    EXPECT_EQ(discOf({38}).totalDurationText(), u"0:01"_s);
    EXPECT_EQ(discOf({30, 30, 15}).totalDurationText(), u"0:01"_s);
    EXPECT_EQ(discOf({75 * 59 + 74}).totalDurationText(), u"1:00"_s);
}

TEST(DiscInfo, SumsItselfUpInALine)
{
    EXPECT_EQ(DiscInfo().summary(), u"0 tracks · 0:00"_s);
    EXPECT_EQ(discOf({75 * 61}).summary(), u"1 track · 1:01"_s);
    EXPECT_EQ(discOf(QList<qint64>(12, 75 * 235 + 19)).summary(), u"12 tracks · 47:03"_s);
}

TEST(DiscInfo, GivesAChapterForEachTrackThatStartsAtZero)
{
    DiscInfo disc = discOf({75 * 10, 100});
    disc.tracks[0].title = u" \tFirst Song\n"_s;
    EXPECT_EQ(disc.chapters(), (QList<ChapterInfo>{{.id = 0,
                                                    .startSeconds = 0,
                                                    .endSeconds = 10,
                                                    .originalTitle = u"First Song"_s,
                                                    .mappedTitle = u"First Song"_s},
                                                   {.id = 1,
                                                    .startSeconds = 0,
                                                    .endSeconds = 100 / 75.0,
                                                    .originalTitle = u"Track 2"_s,
                                                    .mappedTitle = u"Track 2"_s}}));
}

TEST(DiscInfo, NamesAChapterByTheTracksNumberAndNotByItsPlace)
{
    DiscInfo disc = discOf({75});
    disc.tracks[0].number = 7;
    disc.tracks[0].title = u" \n "_s;
    ASSERT_EQ(disc.chapters().size(), 1);
    EXPECT_EQ(disc.chapters().front().id, 0);
    EXPECT_EQ(disc.chapters().front().originalTitle, u"Track 7"_s);
}

} // namespace tonearm
