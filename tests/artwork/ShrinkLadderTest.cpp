// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ShrinkLadder.h"

#include <QRandomGenerator>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <utility>
#include <vector>

namespace tonearm {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

using Step = std::pair<int, double>;

constexpr qint64 nothingFits = 0;
constexpr int longestSide = 2000;

// Steps that give files of given sizes, 100 bytes where none is given; a size of nothing is a failure. Each
// file is filled with a byte of its own.
class Rungs
{
public:
    std::map<Step, std::optional<int>> sizes = {};
    std::vector<int> withoutThumbnail = {};
    std::vector<int> decoded = {};
    std::vector<Step> tried = {};

    std::optional<EncodedPicture> shrink(int start, qint64 budget)
    {
        return shrunkPicture(start, budget,
                             {.thumbnail = [this](int side) { return thumbnail(side); },
                              .encode =
                                  [this](const QImage &image, double quality) {
                                      return encode({image.width(), quality});
                                  }});
    }

private:
    std::optional<QImage> thumbnail(int side)
    {
        decoded.push_back(side);
        if (std::ranges::find(withoutThumbnail, side) != withoutThumbnail.end())
            return std::nullopt;
        return QImage(side, 1, QImage::Format_RGB32);
    }

    std::optional<QByteArray> encode(const Step &step)
    {
        constexpr int ordinarySize = 100;
        tried.push_back(step);
        const auto found = sizes.find(step);
        const std::optional<int> size = found == sizes.end() ? ordinarySize : found->second;
        if (!size)
            return std::nullopt;
        return QByteArray(*size, static_cast<char>(tried.size()));
    }
};

std::vector<Step> allSteps(int start)
{
    std::vector<Step> steps;
    for (const int dimension : ladderDimensions(start))
        for (const double quality : {0.85, 0.7, 0.55})
            steps.emplace_back(dimension, quality);
    return steps;
}

} // namespace

TEST(ShrinkLadder, TriesThePicturesOwnSideAndAllThatAreSmaller)
{
    EXPECT_THAT(ladderDimensions(4000), ElementsAre(4000, 1400, 1200, 1000, 800, 600, 500, 400));
    EXPECT_THAT(ladderDimensions(1300), ElementsAre(1300, 1200, 1000, 800, 600, 500, 400));
    EXPECT_THAT(ladderDimensions(1200), ElementsAre(1200, 1000, 800, 600, 500, 400));
    EXPECT_THAT(ladderDimensions(401), ElementsAre(401, 400));
    EXPECT_THAT(ladderDimensions(400), ElementsAre(400));
    EXPECT_THAT(ladderDimensions(300), ElementsAre(300));
}

TEST(ShrinkLadder, TriesThreeQualitiesOfASmallPicture)
{
    Rungs rungs;
    rungs.shrink(300, nothingFits);
    EXPECT_THAT(rungs.tried, ElementsAre(Pair(300, 0.85), Pair(300, 0.7), Pair(300, 0.55)));
}

TEST(ShrinkLadder, TriesEveryQualityAtASizeBeforeTheNextSize)
{
    Rungs rungs;
    rungs.shrink(longestSide, nothingFits);
    EXPECT_EQ(rungs.tried, allSteps(longestSide));
    EXPECT_EQ(rungs.tried.size(), 24U);
}

TEST(ShrinkLadder, DecodesOnceForEachSize)
{
    Rungs rungs;
    rungs.shrink(600, nothingFits);
    EXPECT_THAT(rungs.decoded, ElementsAre(600, 500, 400));
}

TEST(ShrinkLadder, StopsAtTheFirstThatFits)
{
    Rungs rungs;
    rungs.sizes[{1000, 0.7}] = 50;
    rungs.sizes[{800, 0.85}] = 10;
    const auto shrunk = rungs.shrink(1000, 50);
    ASSERT_TRUE(shrunk);
    EXPECT_EQ(shrunk->size, QSize(1000, 1));
    EXPECT_EQ(shrunk->bytes, QByteArray(50, 2));
    EXPECT_EQ(rungs.tried.size(), 2U);
}

TEST(ShrinkLadder, DoesNotTakeWhatIsOneByteTooLarge)
{
    Rungs rungs;
    rungs.sizes[{1000, 0.7}] = 51;
    rungs.sizes[{1000, 0.55}] = 50;
    EXPECT_EQ(rungs.shrink(1000, 50)->bytes, QByteArray(50, 3));
}

TEST(ShrinkLadder, GivesTheSmallestWhereNothingFits)
{
    Rungs rungs;
    rungs.sizes[{500, 0.7}] = 60;
    const auto shrunk = rungs.shrink(longestSide, 50);
    ASSERT_TRUE(shrunk);
    EXPECT_EQ(shrunk->size, QSize(500, 1));
    EXPECT_EQ(shrunk->bytes.size(), 60);
}

TEST(ShrinkLadder, GivesTheFirstOfThoseThatAreEquallySmall)
{
    Rungs rungs;
    EXPECT_EQ(rungs.shrink(longestSide, 50)->bytes, QByteArray(100, 1));
}

TEST(ShrinkLadder, SkipsASizeThatCantBeDecoded)
{
    Rungs rungs;
    rungs.withoutThumbnail = {500, 400};
    rungs.shrink(500, nothingFits);
    EXPECT_THAT(rungs.tried, IsEmpty());
    rungs.withoutThumbnail = {500};
    rungs.shrink(500, nothingFits);
    EXPECT_THAT(rungs.tried, ElementsAre(Pair(400, 0.85), Pair(400, 0.7), Pair(400, 0.55)));
}

TEST(ShrinkLadder, SkipsAQualityThatCantBeEncoded)
{
    Rungs rungs;
    rungs.sizes[{400, 0.85}] = std::nullopt;
    rungs.sizes[{400, 0.7}] = 50;
    EXPECT_EQ(rungs.shrink(400, 50)->bytes, QByteArray(50, 2));
}

TEST(ShrinkLadder, GivesNothingOnlyIfEveryStepFails)
{
    Rungs rungs;
    for (const Step &step : allSteps(500))
        rungs.sizes[step] = std::nullopt;
    EXPECT_FALSE(rungs.shrink(500, 1000));
    rungs.sizes[{400, 0.55}] = 5000;
    EXPECT_EQ(rungs.shrink(500, 1000)->bytes.size(), 5000);
}

TEST(ShrinkLadder, GivesTheFirstThatFitsOrTheSmallestWhateverTheSizesAre)
{
    constexpr int largest = 60;
    QRandomGenerator random(7);
    for (int round = 0; round < 2000; ++round) {
        Rungs rungs;
        const int start = random.bounded(100, longestSide);
        const qint64 budget = random.bounded(largest / 2);
        std::optional<QByteArray> expected;
        for (const Step &step : allSteps(start)) {
            const bool hasFailed = random.bounded(8) == 0;
            const int size = random.bounded(1, largest);
            const auto number = static_cast<char>(rungs.sizes.size() + 1);
            rungs.sizes[step] = hasFailed ? std::nullopt : std::optional(size);
            const bool isSettled = expected && expected->size() <= budget;
            if (!hasFailed && !isSettled && (!expected || size < expected->size()))
                expected = QByteArray(size, number);
        }
        const std::optional<EncodedPicture> shrunk = rungs.shrink(start, budget);
        EXPECT_EQ(shrunk ? std::optional(shrunk->bytes) : std::nullopt, expected) << round;
    }
}

} // namespace tonearm
