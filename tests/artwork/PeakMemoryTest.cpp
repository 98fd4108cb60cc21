// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/PictureFolder.h"
#include "artwork/Pictures.h"
#include "helpers/Media.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::JpegRecipe;
using test::PictureFolder;
using test::PngRecipe;

namespace {

constexpr qint64 usualBudget = 600 * 1024;

// What became of a picture, prepared in a process of its own.
struct Outcome
{
    /// As "<width>x<height>", "-" if the picture couldn't be shrunk.
    QString size = {};
    qint64 peakKilobytes = 0;
};

class PeakMemory : public testing::Test
{
protected:
    void SetUp() override
    {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        GTEST_SKIP() << "A sanitizer's own memory can't be told from the program's.";
#endif
    }

    QString path() const { return m_folder.path(u"picture"_s); }

    void store(const QByteArray &bytes) const { m_folder.add(u"picture"_s, bytes); }

    Outcome prepare(qint64 byteBudget = usualBudget) const
    {
        const QTemporaryDir copies;
        const QString probe = QCoreApplication::applicationDirPath() + u"/artwork_memory_probe"_s;
        const QByteArray line = test::outputOf(probe, {path(), QString::number(byteBudget), copies.path()});
        const QStringList words = QString::fromUtf8(line).simplified().split(u' ');
        EXPECT_EQ(words.size(), 3) << line.toStdString();
        return {.size = words.value(0), .peakKilobytes = words.value(2).toLongLong()};
    }

private:
    PictureFolder m_folder;
};

constexpr qint64 limitKilobytes = 600'000;
constexpr QSize huge(20'000, 14'000);

} // namespace

TEST_F(PeakMemory, OfAHugeJpegStaysLow)
{
    test::makeJpeg(path(), {.size = huge});
    const Outcome outcome = prepare();
    EXPECT_EQ(outcome.size, u"1400x980"_s);
    EXPECT_LT(outcome.peakKilobytes, limitKilobytes);
}

TEST_F(PeakMemory, OfAHugePngStaysLow)
{
    using Colours = PngRecipe::Colours;
    const std::vector<PngRecipe> recipes{
        {.size = huge, .colours = Colours::colour},
        {.size = huge, .colours = Colours::grey, .bitDepth = 1},
        {.size = huge / 2, .colours = Colours::colourAlpha, .bitDepth = 16},
    };
    for (const PngRecipe &recipe : recipes) {
        test::makePng(path(), recipe);
        const Outcome outcome = prepare(30'000);
        EXPECT_EQ(outcome.size, u"1400x980"_s);
        EXPECT_LT(outcome.peakKilobytes, limitKilobytes);
    }
}

TEST_F(PeakMemory, OfAHugePictureThatCantBeReadInPartsStaysLow)
{
    test::makePng(path(), {.size = huge, .isInterlaced = true});
    const Outcome interlaced = prepare(1);
    EXPECT_EQ(interlaced.size, u"-"_s);
    EXPECT_LT(interlaced.peakKilobytes, limitKilobytes);
    store(test::jpegClaiming(huge, true));
    const Outcome progressive = prepare(1);
    EXPECT_EQ(progressive.size, u"-"_s);
    EXPECT_LT(progressive.peakKilobytes, limitKilobytes);
}

TEST_F(PeakMemory, OfAnEmptyClaimStaysLow)
{
    store(test::jpegClaiming({20'000, 20'000}));
    EXPECT_LT(prepare(1).peakKilobytes, limitKilobytes);
    store(test::pngClaiming({20'000, 20'000}));
    EXPECT_LT(prepare(1).peakKilobytes, limitKilobytes);
    store(test::jpegClaiming({65'000, 65'000}));
    EXPECT_LT(prepare(1).peakKilobytes, limitKilobytes);
    store(test::pngClaiming({1'000'000, 1'000'000}));
    EXPECT_LT(prepare(1).peakKilobytes, limitKilobytes);
}

TEST_F(PeakMemory, OfThePicturesThatJustFitStaysLow)
{
    store(test::encoded(test::noise({8'900, 8'900}), "jpeg", 60));
    EXPECT_LT(prepare(1).peakKilobytes, limitKilobytes);
    store(test::withExif(test::encoded(test::noise({6'000, 6'000}), "jpeg", 60), 6));
    EXPECT_LT(prepare(1).peakKilobytes, limitKilobytes);
}

TEST_F(PeakMemory, OfTextsThatUnfoldStaysLow)
{
    store(test::withPackedTexts(test::encoded(test::noise({300, 300}), "png"), 300, 7'000'000));
    const Outcome outcome = prepare(30'000);
    EXPECT_EQ(outcome.size, u"300x300"_s);
    EXPECT_LT(outcome.peakKilobytes, limitKilobytes);
}

} // namespace tonearm
