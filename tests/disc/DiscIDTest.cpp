// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/DiscTOC.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <discid/discid.h>

#include <array>
#include <random>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// What libdiscid makes of the same numbers; an empty text if it refuses them.
QString witness(const DiscTOC &toc)
{
    std::array<int, 100> offsets = {static_cast<int>(toc.leadoutFrame)};
    for (const auto &[number, start] : toc.trackStarts)
        offsets[static_cast<size_t>(number)] = static_cast<int>(start);
    const std::unique_ptr<DiscId *, void (*)(DiscId **)> disc(new DiscId *(discid_new()),
                                                              [](DiscId **handle) {
                                                                  discid_free(*handle);
                                                                  delete handle;
                                                              });
    const bool isTaken = discid_put(*disc, static_cast<int>(toc.firstTrack), static_cast<int>(toc.lastTrack),
                                    offsets.data()) == 1;
    return isTaken ? QString::fromLatin1(discid_get_id(*disc)) : QString();
}

DiscTOC randomTable(std::mt19937 &random)
{
    const auto pick = [&](int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random);
    };
    DiscTOC toc;
    toc.firstTrack = pick(1, 99);
    toc.lastTrack = pick(static_cast<int>(toc.firstTrack), 99);
    qint64 frame = 150 + pick(0, 3000);
    for (qint64 track = toc.firstTrack; track <= toc.lastTrack; ++track) {
        toc.trackStarts[track] = frame;
        frame += pick(300, 4000);
    }
    toc.leadoutFrame = frame;
    toc.sessionCount = pick(1, 2);
    return toc;
}

} // namespace

TEST(DiscID, IsTheOneThatLibdiscidComputes)
{
    std::mt19937 random(20);
    for (int round = 0; round < 5000; ++round) {
        const DiscTOC toc = randomTable(random);
        ASSERT_EQ(toc.discID(), witness(toc)) << "tracks " << toc.firstTrack << " to " << toc.lastTrack;
    }
}

TEST(DiscID, LeavesTheSlotOfAMissingTrackAtZero)
{
    const DiscTOC gap = {.firstTrack = 1,
                         .lastTrack = 4,
                         .leadoutFrame = 40000,
                         .trackStarts = {{1, 150}, {2, 9000}, {4, 30000}},
                         .sessionCount = 1};
    DiscTOC zero = gap;
    zero.trackStarts[3] = 0;
    EXPECT_EQ(gap.discID(), zero.discID());
    zero.trackStarts[3] = 20000;
    EXPECT_NE(gap.discID(), zero.discID());
}

TEST(DiscID, HasTwentyEightCharactersThatAnAddressCanHold)
{
    std::mt19937 random(4);
    for (int round = 0; round < 5000; ++round) {
        const QString id = randomTable(random).discID();
        ASSERT_EQ(id.size(), 28);
        ASSERT_FALSE(id.contains(u'+') || id.contains(u'/') || id.contains(u'=')) << id.toStdString();
        ASSERT_TRUE(id.endsWith(u'-'));
    }
}

} // namespace tonearm
