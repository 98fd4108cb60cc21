// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/DiscLayout.h"

#include <gtest/gtest.h>

namespace tonearm {

namespace {

LayoutTrack audio(int number, qint64 start)
{
    return {.number = number, .start = start, .isAudio = true};
}

LayoutTrack data(int number, qint64 start)
{
    return {.number = number, .start = start, .isAudio = false};
}

} // namespace

TEST(DiscLayout, IsOneSessionOfAudioTracks)
{
    const QList<LayoutTrack> tracks = {audio(1, 0), audio(2, 1000)};
    EXPECT_EQ(layoutOfTable(tracks, 3000), (DiscLayout{{{1, 3000, tracks}}}));
}

TEST(DiscLayout, KeepsADataTrackInFrontOrAmongTheAudioInItsSession)
{
    const QList<LayoutTrack> front = {data(1, 0), audio(2, 20000)};
    EXPECT_EQ(layoutOfTable(front, 40000), (DiscLayout{{{1, 40000, front}}}));
    const QList<LayoutTrack> among = {audio(1, 0), data(2, 20000), audio(3, 40000)};
    EXPECT_EQ(layoutOfTable(among, 60000), (DiscLayout{{{1, 60000, among}}}));
}

TEST(DiscLayout, PutsDataBehindTheAudioInASessionOfItsOwn)
{
    EXPECT_EQ(layoutOfTable({audio(1, 0), audio(2, 1000), data(3, 20000), data(4, 21000)}, 30000),
              (DiscLayout{{{1, 20000 - 11400, {audio(1, 0), audio(2, 1000)}},
                           {2, 30000, {data(3, 20000), data(4, 21000)}}}}));
}

TEST(DiscLayout, KeepsDataInTheSessionWhereThereIsNoRoomForAnother)
{
    const QList<LayoutTrack> tracks = {audio(1, 0), audio(2, 1000), data(3, 12400)};
    EXPECT_EQ(layoutOfTable(tracks, 20000), (DiscLayout{{{1, 20000, tracks}}}));
}

TEST(DiscLayout, HasNoSecondSessionWithoutAudio)
{
    const QList<LayoutTrack> tracks = {data(1, 0), data(2, 20000)};
    EXPECT_EQ(layoutOfTable(tracks, 40000), (DiscLayout{{{1, 40000, tracks}}}));
    EXPECT_EQ(audioTracks(layoutOfTable(tracks, 40000)), QList<AudioTrack>());
    EXPECT_EQ(audioTracks(layoutOfTable({}, 0)), QList<AudioTrack>());
}

TEST(DiscLayout, EndsATrackAtTheNextOneOrTheLeadout)
{
    const DiscLayout layout = {{{1, 5000, {audio(1, 32), data(2, 1000), audio(3, 2000), audio(4, 3000)}},
                                {2, 90000, {data(5, 20000)}}}};
    EXPECT_EQ(audioTracks(layout), (QList<AudioTrack>{{1, 32, 968}, {3, 2000, 1000}, {4, 3000, 2000}}));
}

TEST(DiscLayout, GivesNoTrackANegativeLength)
{
    EXPECT_EQ(audioTracks({{{1, 500, {audio(1, 1000)}}}}), (QList<AudioTrack>{{1, 1000, 0}}));
}

} // namespace tonearm
