// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/StallWatch.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// How many looks in a row at the same size it takes.
int looksUntilStalled(OutputGrowth &growth, qint64 size)
{
    int looks = 1;
    while (!growth.isStalledAt(size) && looks < 1000)
        ++looks;
    return looks;
}

// 150 seconds of looks 0.4 seconds apart.
constexpr int looksOfPatience = 375;

qint64 expectedBytes(qint64 frames)
{
    return 44 + frames * 2352;
}

// A track of 10,000 frames of which so many are missing.
QString messageWithMissing(qint64 frames, bool precedesDataSession)
{
    const DiscTrack track{.number = 5, .frameCount = 10000, .precedesDataSession = precedesDataSession};
    return stallMessage(track, expectedBytes(10000 - frames), expectedBytes(10000));
}

const QString boundaryMessage =
    u"Secure reading stopped 300 frames from the end of the last audio track, where the data session on an "
    "enhanced CD begins. That boundary is already handled, so this is more likely a fault with the disc than "
    "the layout. Switching secure ripping off in Settings will read it the ordinary way."_s;

QString ordinaryMessage(qint64 frames)
{
    return u"The drive stopped making progress at "_s + QString::number(expectedBytes(10000 - frames)) +
           u" of 23520044 bytes, "_s + QString::number(frames) +
           u" frames from the end. The disc may be damaged or dirty. Switching secure ripping off in Settings "
           "will read it the ordinary way."_s;
}

} // namespace

TEST(StallWatch, CallsAFileStalledThatNeverAppears)
{
    OutputGrowth growth(StallTimes{});
    EXPECT_FALSE(growth.isStalledAt(0)) << "the first look counts as growth";
    EXPECT_EQ(looksUntilStalled(growth, 0), looksOfPatience);
}

TEST(StallWatch, BeginsAnewWithEveryGrowth)
{
    OutputGrowth growth(StallTimes{});
    EXPECT_FALSE(growth.isStalledAt(0));
    for (int look = 1; look < looksOfPatience; ++look)
        EXPECT_FALSE(growth.isStalledAt(0));
    EXPECT_FALSE(growth.isStalledAt(1));
    EXPECT_EQ(looksUntilStalled(growth, 1), looksOfPatience);
}

TEST(StallWatch, TakesAShrinkingFileForOneThatDoesntGrow)
{
    OutputGrowth growth(StallTimes{});
    EXPECT_FALSE(growth.isStalledAt(1000));
    EXPECT_EQ(looksUntilStalled(growth, 10), looksOfPatience);
}

TEST(StallWatch, LooksEveryFourTenthsOfASecondForTwoMinutesAndAHalf)
{
    using namespace std::chrono_literals;
    EXPECT_EQ(StallTimes{}.poll, 400ms);
    EXPECT_EQ(StallTimes{}.patience, 150s);
}

TEST(StallWatch, KeepsTheTimesThatItIsGiven)
{
    using namespace std::chrono_literals;
    OutputGrowth growth({.poll = 2ms, .patience = 5ms});
    EXPECT_FALSE(growth.isStalledAt(0));
    EXPECT_EQ(looksUntilStalled(growth, 0), 3);
}

TEST(StallWatch, KnowsTheSizeOnceDeclared)
{
    StallWatch watch;
    EXPECT_EQ(watch.bytes(), std::nullopt);
    watch.declareStalled(0);
    EXPECT_EQ(watch.bytes(), 0);
}

TEST(StallWatch, BlamesTheBoundaryCloseToADataSession)
{
    EXPECT_EQ(messageWithMissing(300, true), boundaryMessage);
}

TEST(StallWatch, BlamesTheDiscAnywhereElse)
{
    EXPECT_EQ(messageWithMissing(500, true), ordinaryMessage(500));
    EXPECT_EQ(messageWithMissing(300, false), ordinaryMessage(300));
}

TEST(StallWatch, DrawsTheLineAtFourHundredAndOneFrames)
{
    const DiscTrack track{.frameCount = 10000, .precedesDataSession = true};
    const qint64 expected = expectedBytes(10000);
    EXPECT_TRUE(stallMessage(track, expected - 943151, expected)
                    .startsWith(u"Secure reading stopped 400 frames from the end"_s));
    EXPECT_EQ(stallMessage(track, expected - 943152, expected), ordinaryMessage(401));
}

TEST(StallWatch, CountsNoFramesBehindTheEnd)
{
    EXPECT_TRUE(
        stallMessage({}, 5000, 44)
            .startsWith(u"The drive stopped making progress at 5000 of 44 bytes, 0 frames from the end."_s));
}

} // namespace tonearm
