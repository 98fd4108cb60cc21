// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/PictureInfo.h"

#include "artwork/PictureFolder.h"
#include "artwork/Pictures.h"

#include <QFile>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::JpegRecipe;
using test::PictureFolder;
using test::PngRecipe;

namespace {

std::optional<PictureInfo> infoOf(const QByteArray &bytes, const QString &name = u"picture"_s)
{
    const PictureFolder folder;
    folder.add(name, bytes);
    return pictureInfo(folder.path(name));
}

// What a decoder holds for the whole of a JPEG beside the bytes of the file.
qint64 scanBytesOf(const JpegRecipe &recipe)
{
    const PictureFolder folder;
    const QString path = folder.path(u"picture.jpg"_s);
    test::makeJpeg(path, recipe);
    return pictureInfo(path).value().wholePictureBytes - QFile(path).size();
}

} // namespace

TEST(PictureInfo, TellsFormatAndSizeByContent)
{
    const QImage image = test::quarters({30, 20});
    for (const QString &name : {u"a.jpg"_s, u"a.png"_s, u"a.JPG"_s, u"a"_s, u"a.txt"_s}) {
        const auto jpeg = infoOf(test::encoded(image, "jpeg"), name).value();
        EXPECT_EQ(jpeg.format, PictureFormat::jpeg);
        EXPECT_EQ(jpeg.storedSize, QSize(30, 20));
        const auto png = infoOf(test::encoded(image, "png"), name).value();
        EXPECT_EQ(png.format, PictureFormat::png);
        EXPECT_EQ(png.storedSize, QSize(30, 20));
    }
}

TEST(PictureInfo, TakesNothingButJpegAndPngForPictures)
{
    constexpr QByteArrayView gif("GIF89a\x01\0\x01\0\x80\0\0\0\0\0\xFF\xFF\xFF,\0\0\0\0\x01\0\x01\0\0\x02\x02"
                                 "D\x01\0;",
                                 35);
    EXPECT_FALSE(infoOf(gif.toByteArray(), u"a.png"_s));
    EXPECT_FALSE(infoOf("RIFF\x1A\0\0\0WEBPVP8L", u"a.png"_s));
    EXPECT_FALSE(infoOf("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>", u"a.png"_s));
    EXPECT_FALSE(infoOf(test::encoded(test::quarters({9, 9}), "bmp"), u"a.jpg"_s));
    EXPECT_FALSE(infoOf("This is a text.", u"a.jpg"_s));
    EXPECT_FALSE(infoOf("", u"a.jpg"_s));
}

TEST(PictureInfo, NeedsAHeaderThatIsWhole)
{
    const QImage image = test::quarters({30, 20});
    EXPECT_FALSE(infoOf(test::encoded(image, "jpeg").first(3)));
    EXPECT_FALSE(infoOf(test::encoded(image, "jpeg").first(100)));
    EXPECT_FALSE(infoOf(test::encoded(image, "png").first(8)));
    EXPECT_FALSE(infoOf(test::encoded(image, "png").first(24)));
    EXPECT_FALSE(infoOf("\xFF\xD8\xFF\xD9"));
}

TEST(PictureInfo, NeedsASize)
{
    EXPECT_FALSE(infoOf(test::jpegClaiming({30, 0})));
    EXPECT_FALSE(infoOf(test::jpegClaiming({0, 20})));
    EXPECT_FALSE(infoOf(test::pngClaiming({0, 20})));
    EXPECT_TRUE(infoOf(test::pngClaiming({30, 20})));
}

TEST(PictureInfo, NeedsAFile)
{
    const PictureFolder folder;
    EXPECT_FALSE(pictureInfo(folder.path(u"not-there.jpg"_s)));
    EXPECT_FALSE(pictureInfo(folder.path(u""_s)));
    EXPECT_FALSE(pictureInfo({}));
}

TEST(PictureInfo, DoesNotWaitForAPipe)
{
    const PictureFolder folder;
    const QString path = folder.path(u"pipe.jpg"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_FALSE(pictureInfo(path));
}

TEST(PictureInfo, GivesTheSizeAsStoredAndTellsOfAnOrientation)
{
    const QByteArray jpeg = test::encoded(test::quarters({30, 20}), "jpeg");
    EXPECT_FALSE(infoOf(test::withExif(jpeg, 1)).value().isTurned);
    const auto turned = infoOf(test::withExif(jpeg, 6)).value();
    EXPECT_EQ(turned.storedSize, QSize(30, 20));
    EXPECT_TRUE(turned.isTurned);
}

TEST(PictureInfo, CountsWhatTheDecoderHoldsForAPictureInSeveralScans)
{
    // 64 by 48 pixels are 8 by 6 blocks; chroma of half the side fills 4 by 3 for each colour.
    constexpr qint64 blockBytes = 128;
    EXPECT_EQ(scanBytesOf({.size = {64, 48}}), 0);
    EXPECT_EQ(scanBytesOf({.size = {64, 48}, .isProgressive = true}), (48 + 12 + 12) * blockBytes);
    EXPECT_EQ(scanBytesOf({.size = {64, 48}, .isInSeveralScans = true}), (48 + 12 + 12) * blockBytes);
    EXPECT_EQ(scanBytesOf({.size = {64, 48}, .isProgressive = true, .isSubsampled = false}),
              3 * 48 * blockBytes);
    EXPECT_EQ(scanBytesOf({.size = {64, 48}, .colours = JpegRecipe::Colours::grey}), 0);
    EXPECT_EQ(scanBytesOf({.size = {64, 48}, .colours = JpegRecipe::Colours::grey, .isProgressive = true}),
              48 * blockBytes);
    // A block or a group of them that is cut counts in full.
    EXPECT_EQ(scanBytesOf({.size = {65, 49}, .isProgressive = true}), (5 * 4 * 6) * blockBytes);
}

TEST(PictureInfo, CountsTheWholeOfAnInterlacedPng)
{
    const PictureFolder folder;
    const QString path = folder.path(u"picture.png"_s);
    test::makePng(path, {.size = {64, 48}});
    EXPECT_EQ(pictureInfo(path).value().wholePictureBytes, 0);
    test::makePng(path, {.size = {64, 48}, .isInterlaced = true});
    EXPECT_EQ(pictureInfo(path).value().wholePictureBytes, 4 * 64 * 48);
}

} // namespace tonearm
