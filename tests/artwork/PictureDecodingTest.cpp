// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/PictureDecoding.h"

#include "artwork/PictureFolder.h"
#include "artwork/Pictures.h"

#include <QColorSpace>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::JpegRecipe;
using test::PictureFolder;
using test::PngRecipe;
using testing::ElementsAre;

namespace {

// Colours in words, as far as lossy coding leaves them recognisable.
std::string colourAt(const QImage &image, double x, double y)
{
    const QColor colour =
        image.pixelColor(static_cast<int>(x * image.width()), static_cast<int>(y * image.height()));
    const auto isNear = [&](const QColor &other) {
        constexpr int tolerance = 40;
        return std::abs(colour.red() - other.red()) < tolerance &&
               std::abs(colour.green() - other.green()) < tolerance &&
               std::abs(colour.blue() - other.blue()) < tolerance;
    };
    if (colour.alpha() == 0)
        return "nothing";
    for (const auto &[name, other] :
         {std::pair("red", QColor(Qt::red)), std::pair("green", QColor(Qt::green)),
          std::pair("blue", QColor(Qt::blue)), std::pair("white", QColor(Qt::white)),
          std::pair("black", QColor(Qt::black))})
        if (isNear(other))
            return name;
    return colour.name(QColor::HexArgb).toStdString();
}

// The colours of the four quarters, from the upper left to the lower right.
std::vector<std::string> quartersOf(const QImage &image)
{
    constexpr double near = 0.2;
    constexpr double far = 0.8;
    return {colourAt(image, near, near), colourAt(image, far, near), colourAt(image, near, far),
            colourAt(image, far, far)};
}

class Decoding : public testing::Test
{
protected:
    QString path() const { return m_folder.path(u"picture"_s); }

    QUrl url() const { return m_folder.url(u"picture"_s); }

    void store(const QByteArray &bytes) const { m_folder.add(u"picture"_s, bytes); }

    QImage decode(int longestSide) const { return screenPicture(url(), longestSide).value_or(QImage()); }

private:
    PictureFolder m_folder;
};

} // namespace

TEST(FittedSize, ShortensTheLongerSideAndKeepsTheProportions)
{
    EXPECT_EQ(fittedSize({1300, 900}, 1200), QSize(1200, 831));
    EXPECT_EQ(fittedSize({900, 1300}, 1200), QSize(831, 1200));
    EXPECT_EQ(fittedSize({4000, 4000}, 1400), QSize(1400, 1400));
    EXPECT_EQ(fittedSize({300, 200}, 300), QSize(300, 200));
    EXPECT_EQ(fittedSize({300, 200}, 1400), QSize(300, 200));
    EXPECT_EQ(fittedSize({1, 20000}, 1400), QSize(1, 1400));
    EXPECT_EQ(fittedSize({1'000'000, 3}, 400), QSize(400, 1));
}

TEST(DecodingBytes, CountsAJpegAtTheFractionThatTheDecoderReaches)
{
    const PictureInfo info{.format = PictureFormat::jpeg, .storedSize = {4000, 4000}};
    EXPECT_EQ(decodingBytes(info, {4000, 4000}), 4 * 4000 * 4000);
    EXPECT_EQ(decodingBytes(info, {1400, 1400}), 4 * (2000 * 2000 + 1400 * 1400));
    EXPECT_EQ(decodingBytes(info, {1000, 1000}), 4 * 1000 * 1000);
    EXPECT_EQ(decodingBytes(info, {400, 400}), 4 * (500 * 500 + 400 * 400));
}

TEST(DecodingBytes, CountsTurningAndWhatIsHeldForTheWhole)
{
    const PictureInfo info{
        .format = PictureFormat::jpeg, .storedSize = {4000, 4000}, .isTurned = true, .wholePictureBytes = 77};
    EXPECT_EQ(decodingBytes(info, {4000, 4000}), 77 + 2 * 4 * 4000 * 4000);
}

TEST(DecodingBytes, CountsAPngAtAWholeFraction)
{
    const PictureInfo info{.format = PictureFormat::png, .storedSize = {20000, 14000}};
    EXPECT_EQ(decodingBytes(info, {1400, 980}), 4 * (1429 * 1000 + 1400 * 980));
}

TEST_F(Decoding, ReadsEveryKindOfJpeg)
{
    using Colours = JpegRecipe::Colours;
    const std::vector<JpegRecipe> recipes{
        {},
        {.isProgressive = true},
        {.isInSeveralScans = true},
        {.isSubsampled = false},
        {.colours = Colours::cmyk},
        {.colours = Colours::cmyk, .isProgressive = true},
    };
    for (const JpegRecipe &recipe : recipes) {
        test::makeJpeg(path(), recipe);
        EXPECT_THAT(quartersOf(decode(64)), ElementsAre("red", "green", "blue", "white"));
        EXPECT_THAT(quartersOf(decode(20)), ElementsAre("red", "green", "blue", "white"));
        EXPECT_EQ(decode(20).size(), QSize(20, 15));
    }
}

TEST_F(Decoding, ReadsAGreyJpeg)
{
    test::makeJpeg(path(), {.colours = JpegRecipe::Colours::grey});
    EXPECT_THAT(quartersOf(decode(20)), ElementsAre("#ff555555", "#ff555555", "#ff555555", "white"));
}

TEST_F(Decoding, ReadsEveryKindOfPng)
{
    using Colours = PngRecipe::Colours;
    const std::vector<std::pair<Colours, std::vector<int>>> kinds{
        {Colours::grey, {1, 2, 4, 8, 16}}, {Colours::colour, {8, 16}},      {Colours::palette, {1, 2, 4, 8}},
        {Colours::greyAlpha, {8, 16}},     {Colours::colourAlpha, {8, 16}},
    };
    for (const auto &[colours, depths] : kinds)
        for (const int depth : depths)
            for (const bool isInterlaced : {false, true}) {
                test::makePng(path(), {.colours = colours, .bitDepth = depth, .isInterlaced = isInterlaced});
                EXPECT_THAT(quartersOf(decode(64)), ElementsAre("black", "white", "black", "white"));
                EXPECT_THAT(quartersOf(decode(20)), ElementsAre("black", "white", "black", "white"));
                EXPECT_EQ(decode(20).size(), QSize(20, 15));
            }
}

TEST_F(Decoding, AppliesEveryOrientation)
{
    const QByteArray jpeg = test::encoded(test::quarters({48, 32}), "jpeg");
    const std::vector<std::vector<std::string>> expected{
        {"red", "green", "blue", "white"}, {"green", "red", "white", "blue"},
        {"white", "blue", "green", "red"}, {"blue", "white", "red", "green"},
        {"red", "blue", "green", "white"}, {"blue", "red", "white", "green"},
        {"white", "green", "blue", "red"}, {"green", "white", "red", "blue"},
    };
    for (int orientation = 1; orientation <= 8; ++orientation) {
        store(test::withExif(jpeg, orientation));
        const bool isUpright = orientation <= 4;
        EXPECT_EQ(decode(48).size(), isUpright ? QSize(48, 32) : QSize(32, 48)) << orientation;
        EXPECT_EQ(decode(24).size(), isUpright ? QSize(24, 16) : QSize(16, 24)) << orientation;
        EXPECT_EQ(quartersOf(decode(48)), expected.at(static_cast<std::size_t>(orientation) - 1))
            << orientation;
        EXPECT_EQ(quartersOf(decode(24)), expected.at(static_cast<std::size_t>(orientation) - 1))
            << orientation;
    }
}

TEST_F(Decoding, NeverUsesAThumbnailThatTheFileHolds)
{
    QImage black(160, 120, QImage::Format_RGB32);
    black.fill(Qt::black);
    store(test::withExif(test::encoded(test::quarters({640, 480}), "jpeg"), 6, test::encoded(black, "jpeg")));
    for (const int side : {640, 160, 100})
        EXPECT_THAT(quartersOf(decode(side)), ElementsAre("blue", "red", "white", "green")) << side;
}

TEST_F(Decoding, NeverEnlarges)
{
    store(test::encoded(test::quarters({30, 20}), "png"));
    EXPECT_EQ(decode(1000).size(), QSize(30, 20));
    store(test::encoded(test::quarters({30, 20}), "jpeg"));
    EXPECT_EQ(decode(1000).size(), QSize(30, 20));
}

TEST_F(Decoding, BoundsAPictureForTheScreen)
{
    store(test::encoded(test::quarters({3000, 1500}), "png"));
    EXPECT_EQ(screenPicture(url()).value().size(), QSize(2048, 1024));
}

TEST_F(Decoding, KeepsTransparency)
{
    QImage image(64, 48, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int y = 24; y < 48; ++y)
        for (int x = 0; x < 64; ++x)
            image.setPixelColor(x, y, Qt::red);
    store(test::encoded(image, "png"));
    EXPECT_THAT(quartersOf(decode(64)), ElementsAre("nothing", "nothing", "red", "red"));
    EXPECT_THAT(quartersOf(decode(20)), ElementsAre("nothing", "nothing", "red", "red"));
}

TEST_F(Decoding, KeepsTheTransparentColourOfAPalette)
{
    QImage image(64, 48, QImage::Format_Indexed8);
    image.setColorTable({qRgba(255, 0, 0, 255), qRgba(0, 255, 0, 0)});
    image.fill(1);
    for (int y = 24; y < 48; ++y)
        std::fill_n(image.scanLine(y), image.width(), uchar{0});
    store(test::encoded(image, "png"));
    EXPECT_THAT(quartersOf(decode(20)), ElementsAre("nothing", "nothing", "red", "red"));
}

TEST_F(Decoding, SmoothsWhatItMakesSmaller)
{
    QImage stripes(200, 200, QImage::Format_Mono);
    stripes.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
    for (int y = 0; y < stripes.height(); ++y)
        std::fill_n(stripes.scanLine(y), stripes.bytesPerLine(), y % 2 == 0 ? uchar{0} : uchar{0xFF});
    for (const char *format : {"png", "jpeg"}) {
        store(test::encoded(stripes, format, 100));
        EXPECT_NEAR(qGray(decode(50).pixel(25, 25)), 128, 3) << format;
    }
}

TEST_F(Decoding, KeepsTheColourSpace)
{
    QImage image = test::quarters({64, 48});
    image.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
    for (const char *format : {"png", "jpeg"}) {
        store(test::encoded(image, format));
        EXPECT_EQ(decode(64).colorSpace(), image.colorSpace()) << format;
        EXPECT_EQ(decode(20).colorSpace(), image.colorSpace()) << format;
    }
}

TEST_F(Decoding, TakesNamesForHighResolutionAsOrdinary)
{
    const PictureFolder folder;
    const QUrl named = folder.add(u"cover@2x.jpg"_s, test::encoded(test::quarters({64, 48}), "jpeg"));
    EXPECT_EQ(screenPicture(named).value().devicePixelRatio(), 1);
}

TEST_F(Decoding, ReadsTheSmallestAndTheNarrowest)
{
    for (const char *format : {"png", "jpeg"}) {
        store(test::encoded(test::noise({1, 1}), format));
        EXPECT_EQ(decode(400).size(), QSize(1, 1)) << format;
        store(test::encoded(test::noise({1, 20'000}), format));
        EXPECT_EQ(decode(20'000).size(), QSize(1, 20'000)) << format;
        EXPECT_EQ(decode(400).size(), QSize(1, 400)) << format;
        store(test::encoded(test::noise({20'000, 1}), format));
        EXPECT_EQ(decode(400).size(), QSize(400, 1)) << format;
    }
}

TEST_F(Decoding, GivesNothingForADamagedPng)
{
    const QByteArray png = test::encoded(test::noise({64, 48}), "png");
    store(png.first(png.size() / 2));
    EXPECT_FALSE(screenPicture(url()));
    store(QByteArray(png).replace(png.size() / 2, 4, "oops"));
    EXPECT_FALSE(screenPicture(url()));
    test::makePng(path(), {.isInterlaced = true});
    QByteArray interlaced = test::readFile(path());
    interlaced.truncate(interlaced.size() - 30);
    store(interlaced);
    EXPECT_FALSE(screenPicture(url()));
}

TEST_F(Decoding, GivesWhatThereIsOfATruncatedJpeg)
{
    const QByteArray jpeg = test::encoded(test::noise({400, 400}), "jpeg");
    store(jpeg.first(jpeg.size() / 2));
    const QImage image = decode(400);
    EXPECT_EQ(image.size(), QSize(400, 400));
    EXPECT_NE(image.pixel(100, 100), image.pixel(300, 300));
    EXPECT_EQ(image.pixel(300, 300), qRgb(128, 128, 128));
}

TEST_F(Decoding, GivesNothingForWhatIsNoPicture)
{
    store("This is a text.");
    EXPECT_FALSE(screenPicture(url()));
    store("");
    EXPECT_FALSE(screenPicture(url()));
    EXPECT_FALSE(screenPicture(QUrl::fromLocalFile(path() + u"-not-there"_s)));
    EXPECT_FALSE(screenPicture(QUrl(u"https://example.org/cover.jpg"_s)));
    EXPECT_FALSE(screenPicture({}));
}

TEST_F(Decoding, RefusesAPictureOfMorePixelsThanCanBeGoneThrough)
{
    store(test::jpegClaiming({60'000, 60'000}));
    EXPECT_FALSE(screenPicture(url()));
    store(test::pngClaiming({60'000, 60'000}));
    EXPECT_FALSE(screenPicture(url()));
}

} // namespace tonearm
