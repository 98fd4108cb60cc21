// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/FullToc.h"

#include <gtest/gtest.h>

#include <array>

namespace tonearm {

namespace {

constexpr int audioControl = 0x10;
constexpr int dataControl = 0x14;

struct Time
{
    int minutes;
    int seconds;
    int frames;
};

QByteArray entry(int session, int control, int point, Time time)
{
    const std::array<int, 11> fields = {session,      control,      0,          point, 0, 0, 0, 0,
                                        time.minutes, time.seconds, time.frames};
    QByteArray bytes;
    for (const int field : fields)
        bytes.append(static_cast<char>(field));
    return bytes;
}

QByteArray replyOf(const QList<QByteArray> &entries)
{
    const QByteArray body = entries.join();
    QByteArray header("\0\0\1\1", 4);
    header[0] = static_cast<char>((body.size() + 2) / 256);
    header[1] = static_cast<char>((body.size() + 2) % 256);
    return header + body;
}

QList<QByteArray> enhancedDisc()
{
    return {entry(1, audioControl, 0xA0, {1, 0, 0}), entry(1, audioControl, 0xA1, {2, 0, 0}),
            entry(1, audioControl, 0xA2, {8, 2, 3}), entry(1, audioControl, 1, {0, 2, 0}),
            entry(1, audioControl, 2, {4, 30, 74}),  entry(1, 0x50, 0xB0, {10, 32, 3}),
            entry(2, dataControl, 0xA0, {3, 0, 0}),  entry(2, dataControl, 0xA2, {20, 0, 0}),
            entry(2, dataControl, 3, {10, 34, 3})};
}

} // namespace

TEST(FullToc, TellsTheSessionsOfAnEnhancedDisc)
{
    EXPECT_EQ(readFullToc(replyOf(enhancedDisc())),
              (DiscLayout{{{1, 36003, {{1, 0, true}, {2, 20174, true}}}, {2, 89850, {{3, 47403, false}}}}}));
}

TEST(FullToc, IgnoresWhatFollowsItsLength)
{
    EXPECT_EQ(readFullToc(replyOf(enhancedDisc()) + QByteArray(500, '\x55')),
              readFullToc(replyOf(enhancedDisc())));
}

TEST(FullToc, SortsTracksAndSessions)
{
    QList<QByteArray> entries = enhancedDisc();
    std::reverse(entries.begin(), entries.end());
    EXPECT_EQ(readFullToc(replyOf(entries)), readFullToc(replyOf(enhancedDisc())));
}

TEST(FullToc, IsNothingIfCutOff)
{
    const QByteArray reply = replyOf(enhancedDisc());
    for (qsizetype size = 0; size < reply.size(); ++size)
        ASSERT_EQ(readFullToc(reply.first(size)), std::nullopt) << size;
}

TEST(FullToc, IsNothingWithoutTracks)
{
    EXPECT_EQ(readFullToc(replyOf({})), std::nullopt);
    EXPECT_EQ(readFullToc(replyOf({entry(1, audioControl, 0xA2, {8, 0, 0})})), std::nullopt);
}

TEST(FullToc, IsNothingIfItMakesNoSense)
{
    const QByteArray leadout = entry(1, audioControl, 0xA2, {8, 0, 0});
    const QByteArray first = entry(1, audioControl, 1, {2, 0, 0});
    ASSERT_NE(readFullToc(replyOf({leadout, first})), std::nullopt);
    EXPECT_EQ(readFullToc(replyOf({first})), std::nullopt);
    EXPECT_EQ(readFullToc(replyOf({leadout, first, entry(1, audioControl, 2, {1, 0, 0})})), std::nullopt);
    EXPECT_EQ(readFullToc(replyOf({leadout, first, entry(1, audioControl, 2, {9, 0, 0})})), std::nullopt);
    EXPECT_EQ(readFullToc(replyOf({leadout, first, entry(1, audioControl, 1, {3, 0, 0})})), std::nullopt);
}

} // namespace tonearm
