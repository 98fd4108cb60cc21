// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/PictureEnding.h"

#include "artwork/Pictures.h"
#include "helpers/Contents.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::JpegRecipe;

namespace {

QByteArray jpegOf(const JpegRecipe &recipe)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"picture.jpg"_s);
    test::makeJpeg(path, recipe);
    return test::readFile(path);
}

QByteArray png()
{
    return test::encoded(test::noise({30, 20}), "png");
}

// Whatever is missing of it.
void expectEndOnlyWhole(const QByteArray &picture)
{
    EXPECT_FALSE(lacksPictureEnd(picture));
    EXPECT_FALSE(lacksPictureEnd(QByteArray(picture + "and more")));
    constexpr qsizetype leastBytes = 4;
    for (qsizetype size = leastBytes; size < picture.size(); ++size)
        ASSERT_TRUE(lacksPictureEnd(picture.first(size))) << size << " of " << picture.size();
}

} // namespace

TEST(PictureEnding, IsThatOfAJpegOfAnyKind)
{
    expectEndOnlyWhole(test::encoded(test::noise({30, 20}), "jpeg"));
    expectEndOnlyWhole(jpegOf({.isProgressive = true}));
    expectEndOnlyWhole(jpegOf({.isInSeveralScans = true}));
}

TEST(PictureEnding, IsNotThatOfAThumbnailInThePicture)
{
    const QByteArray thumbnail = test::encoded(test::noise({8, 8}), "jpeg");
    expectEndOnlyWhole(test::withExif(test::encoded(test::noise({30, 20}), "jpeg"), 1, thumbnail));
}

TEST(PictureEnding, IsThatOfAPng)
{
    expectEndOnlyWhole(png());
}

TEST(PictureEnding, IsNotAWordInAText)
{
    const QByteArray text = test::pngChunk("tEXt", QByteArray("Comment\0", 8) + "IEND and \xFF\xD9");
    constexpr qsizetype signatureAndHeader = 33;
    expectEndOnlyWhole(QByteArray(png()).insert(signatureAndHeader, text));
}

TEST(PictureEnding, SurvivesLengthsThatLeadNowhere)
{
    EXPECT_TRUE(lacksPictureEnd(QByteArray("\x89PNG\r\n\x1A\n\xFF\xFF\xFF\xFFIDAT....", 20)));
    EXPECT_TRUE(lacksPictureEnd(QByteArray("\xFF\xD8\xFF\xE0\xFF\xFF\xFF\xD9", 8)));
    EXPECT_FALSE(lacksPictureEnd(QByteArray("\xFF\xD8\xFF\xE0\0\0\xFF\xFF\xD9", 9)));
}

TEST(PictureEnding, IsAskedOfNothingElse)
{
    EXPECT_FALSE(lacksPictureEnd("GIF89a"));
    EXPECT_FALSE(lacksPictureEnd({}));
}

} // namespace tonearm
