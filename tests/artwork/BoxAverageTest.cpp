// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/BoxAverage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace tonearm {

namespace {

using Pixel = std::array<quint8, 4>;
using Row = std::vector<Pixel>;

constexpr Pixel black{0, 0, 0, 255};
constexpr Pixel white{255, 255, 255, 255};
constexpr Pixel red{255, 0, 0, 255};
constexpr Pixel unseenRed{255, 0, 0, 0};

QImage averageOf(const std::vector<Row> &rows, int factor)
{
    const QSize size(static_cast<int>(rows.front().size()), static_cast<int>(rows.size()));
    QImage smaller(BoxAverage::averagedSize(size, factor), QImage::Format_ARGB32_Premultiplied);
    BoxAverage average(smaller, size.height(), factor);
    for (const Row &row : rows)
        average.addRow({row.front().data(), row.size() * sizeof(Pixel)});
    return smaller;
}

std::vector<QRgb> pixelsOf(const QImage &image)
{
    std::vector<QRgb> pixels;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            pixels.push_back(image.pixel(x, y));
    return pixels;
}

} // namespace

TEST(BoxAverage, CountsSquaresThatAreCut)
{
    EXPECT_EQ(BoxAverage::averagedSize({10, 9}, 3), QSize(4, 3));
    EXPECT_EQ(BoxAverage::averagedSize({1, 20000}, 1), QSize(1, 20000));
    EXPECT_EQ(BoxAverage::averagedSize({2, 2}, 100), QSize(1, 1));
}

TEST(BoxAverage, KeepsEveryPixelAtAFactorOfOne)
{
    EXPECT_THAT(pixelsOf(averageOf({{black, white}, {red, unseenRed}}, 1)),
                testing::ElementsAre(0xFF000000, 0xFFFFFFFF, 0xFFFF0000, 0x00000000));
}

TEST(BoxAverage, AveragesEachSquare)
{
    EXPECT_THAT(pixelsOf(averageOf({{black, white, red, red}, {white, black, red, red}}, 2)),
                testing::ElementsAre(0xFF808080, 0xFFFF0000));
}

TEST(BoxAverage, AveragesACutSquareOverWhatThereIs)
{
    EXPECT_THAT(pixelsOf(averageOf({{black, black, red}, {black, black, red}, {white, white, red}}, 2)),
                testing::ElementsAre(0xFF000000, 0xFFFF0000, 0xFFFFFFFF, 0xFFFF0000));
}

TEST(BoxAverage, DoesNotLetUnseenColoursTintTheSeen)
{
    const QImage image = averageOf({{white, unseenRed}, {white, unseenRed}}, 2);
    EXPECT_EQ(image.pixelColor(0, 0).rgba(), 0x80FFFFFF);
}

} // namespace tonearm
