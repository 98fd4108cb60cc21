// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/CoverArtPreparation.h"

#include "artwork/CoverArtError.h"
#include "artwork/FullArtworkDisk.h"
#include "artwork/JpegEncoding.h"
#include "artwork/PictureDecoding.h"
#include "artwork/PictureFolder.h"
#include "artwork/Pictures.h"
#include "artwork/ShrinkLadder.h"
#include "helpers/Printing.h"

#include <QColorSpace>
#include <QFileInfo>
#include <QRandomGenerator>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <system_error>
#include <thread>
#include <vector>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::PictureFolder;
using testing::IsEmpty;

namespace {

// The error of a preparation, or nothing if it succeeds.
std::optional<CoverArtError> errorOf(const PictureFolder &folder, const QUrl &url,
                                     std::optional<qint64> budget)
{
    try {
        folder.preparation().prepare(url, budget);
    } catch (const CoverArtError &error) {
        return error;
    }
    return std::nullopt;
}

// Every result of the ladder for a picture, in its order.
std::vector<EncodedPicture> allTries(const QUrl &url)
{
    const QString path = url.toLocalFile();
    const PictureInfo info = pictureInfo(path).value();
    std::vector<EncodedPicture> tries;
    for (const int dimension : ladderDimensions(std::max(info.storedSize.width(), info.storedSize.height())))
        for (const double quality : {0.85, 0.7, 0.55}) {
            const QImage image = overWhite(decodedPicture(path, info, dimension).value());
            tries.push_back({encodedJpeg(image, quality).value(), image.size()});
        }
    return tries;
}

} // namespace

TEST(CoverArtPreparation, LeavesAPictureAloneWithoutABudget)
{
    const PictureFolder folder;
    const QUrl url = folder.add(u"cover.png"_s, test::encoded(test::noise({30, 20}), "png"));
    const qint64 size = QFileInfo(url.toLocalFile()).size();
    const PreparedCoverArt expected{.url = url,
                                    .originalURL = url,
                                    .byteCount = size,
                                    .originalByteCount = size,
                                    .pixelWidth = 30,
                                    .pixelHeight = 20};
    EXPECT_EQ(folder.preparation().prepare(url, std::nullopt), expected);
    EXPECT_FALSE(QFileInfo::exists(folder.artworkPath()));
}

TEST(CoverArtPreparation, LeavesAPictureOfExactlyTheBudgetAlone)
{
    const PictureFolder folder;
    const QUrl url = folder.add(u"cover.jpg"_s, test::encoded(test::noise({30, 20}), "jpeg"));
    const qint64 size = QFileInfo(url.toLocalFile()).size();
    EXPECT_EQ(folder.preparation().prepare(url, size).url, url);
    EXPECT_NE(folder.preparation().prepare(url, size - 1).url, url);
}

TEST(CoverArtPreparation, SavesASmallerCopyAndTellsOfBoth)
{
    const PictureFolder folder;
    const QUrl url = folder.add(u"My cover.front.png"_s, test::encoded(test::noise({500, 300}), "png"));
    constexpr qint64 budget = 100 * 1024;
    const PreparedCoverArt prepared = folder.preparation().prepare(url, budget);
    const QFileInfo copy(prepared.url.toLocalFile());
    EXPECT_EQ(copy.path(), folder.artworkPath());
    EXPECT_TRUE(copy.fileName().endsWith(u"-My cover.front-resized.jpg"_s));
    EXPECT_EQ(prepared.originalURL, url);
    EXPECT_LE(prepared.byteCount, budget);
    EXPECT_EQ(prepared.byteCount, copy.size());
    EXPECT_EQ(prepared.originalByteCount, QFileInfo(url.toLocalFile()).size());
    const PictureInfo info = pictureInfo(copy.filePath()).value();
    EXPECT_EQ(info.format, PictureFormat::jpeg);
    EXPECT_EQ(info.storedSize, QSize(prepared.pixelWidth, prepared.pixelHeight));
}

TEST(CoverArtPreparation, NamesACopyAfterAnyName)
{
    const QList<std::pair<QString, QString>> rows{
        {u"cover"_s, u"-cover-resized.jpg"_s},
        {u".hidden"_s, u"-.hidden-resized.jpg"_s},
        {u"Обложка #1 50%.jpeg"_s, u"-Обложка #1 50%-resized.jpg"_s},
    };
    const QByteArray jpeg = test::encoded(test::noise({30, 20}), "jpeg");
    for (const auto &[name, ending] : rows) {
        const PictureFolder folder;
        const QString copy = folder.preparation().prepare(folder.add(name, jpeg), 1).url.fileName();
        EXPECT_TRUE(copy.endsWith(ending)) << copy.toStdString();
    }
}

TEST(CoverArtPreparation, SavesACopyOfTheLongestName)
{
    const PictureFolder folder;
    const QUrl url = folder.add(QString(251, u'x') + u".jpg"_s, test::encoded(test::noise({30, 20}), "jpeg"));
    EXPECT_TRUE(QFileInfo::exists(folder.preparation().prepare(url, 1).url.toLocalFile()));
}

TEST(CoverArtPreparation, GivesTheSmallestWhereNothingFits)
{
    const PictureFolder folder;
    const QUrl url = folder.add(u"cover.jpg"_s, test::encoded(test::noise({300, 300}), "jpeg"));
    const PreparedCoverArt prepared = folder.preparation().prepare(url, 1);
    EXPECT_GT(prepared.byteCount, 1);
    EXPECT_EQ(prepared.byteCount, allTries(url).back().bytes.size());
}

TEST(CoverArtPreparation, GivesTheFirstTryThatFitsOrTheSmallest)
{
    QRandomGenerator random(11);
    for (int round = 0; round < 12; ++round) {
        const PictureFolder folder;
        const QSize size(random.bounded(20, 900), random.bounded(20, 900));
        const QImage image = test::noise(size / random.bounded(1, 9), random.generate()).scaled(size);
        const QUrl url = folder.add(u"cover"_s, test::encoded(image, round % 2 == 0 ? "png" : "jpeg", 98));
        const std::vector<EncodedPicture> tries = allTries(url);
        const auto bytes = [](const EncodedPicture &picture) { return picture.bytes.size(); };
        const auto smallest = std::ranges::min_element(tries, {}, bytes);
        const qint64 own = QFileInfo(url.toLocalFile()).size();
        for (const qint64 wanted : {bytes(*smallest) - 1, bytes(*smallest), own / 20, own / 5, own / 2}) {
            const qint64 budget = std::min(wanted, own - 1);
            const auto fits = [&](const EncodedPicture &picture) { return bytes(picture) <= budget; };
            const auto first = std::ranges::find_if(tries, fits);
            const EncodedPicture &expected = first == tries.end() ? *smallest : *first;
            const PreparedCoverArt prepared = folder.preparation().prepare(url, budget);
            EXPECT_EQ(test::readFile(prepared.url.toLocalFile()), expected.bytes) << round << ' ' << budget;
            EXPECT_EQ(QSize(prepared.pixelWidth, prepared.pixelHeight), expected.size);
        }
    }
}

TEST(CoverArtPreparation, TurnsACopyAndKeepsTheSizeOfAnOriginal)
{
    const PictureFolder folder;
    const QByteArray jpeg = test::withExif(test::encoded(test::noise({400, 200}), "jpeg"), 6);
    const QUrl url = folder.add(u"cover.jpg"_s, jpeg);
    const PreparedCoverArt original = folder.preparation().prepare(url, std::nullopt);
    EXPECT_EQ(QSize(original.pixelWidth, original.pixelHeight), QSize(400, 200));
    const PreparedCoverArt copy = folder.preparation().prepare(url, jpeg.size() - 1);
    EXPECT_EQ(QSize(copy.pixelWidth, copy.pixelHeight), QSize(200, 400));
    EXPECT_FALSE(pictureInfo(copy.url.toLocalFile()).value().isTurned);
}

TEST(CoverArtPreparation, PutsWhiteUnderTransparency)
{
    const PictureFolder folder;
    QImage image = test::noise({200, 200}).convertToFormat(QImage::Format_ARGB32);
    for (int y = 100; y < 200; ++y)
        std::fill_n(reinterpret_cast<QRgb *>(image.scanLine(y)), 200, qRgba(255, 0, 0, 0));
    const QUrl url = folder.add(u"cover.png"_s, test::encoded(image, "png"));
    const PreparedCoverArt prepared = folder.preparation().prepare(url, 20'000);
    const QImage copy = screenPicture(prepared.url).value();
    EXPECT_FALSE(copy.hasAlphaChannel());
    EXPECT_GT(qGray(copy.pixel(100, 150)), 250);
}

TEST(CoverArtPreparation, KeepsTheColourSpaceInACopy)
{
    const PictureFolder folder;
    QImage image = test::noise({200, 200});
    image.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
    for (const char *format : {"png", "jpeg"}) {
        const QByteArray bytes = test::encoded(image, format);
        const QUrl url = folder.add(u"cover"_s, bytes);
        const PreparedCoverArt prepared = folder.preparation().prepare(url, bytes.size() - 1);
        EXPECT_EQ(screenPicture(prepared.url).value().colorSpace(), image.colorSpace()) << format;
    }
}

TEST(CoverArtPreparation, DoesNotCarryCommentsIntoACopy)
{
    const PictureFolder folder;
    const QByteArray jpeg = test::encoded(test::quarters({100, 100}), "jpeg");
    const QUrl url = folder.add(u"cover.jpg"_s, test::withComments(jpeg, 200'000));
    EXPECT_LE(folder.preparation().prepare(url, jpeg.size()).byteCount, jpeg.size());
}

TEST(CoverArtPreparation, RefusesWhatIsNoPicture)
{
    const PictureFolder folder;
    const QList<QUrl> urls{
        folder.add(u"text.jpg"_s, "This is a text."),
        folder.add(u"empty.png"_s, ""),
        folder.add(u"cut.jpg"_s, test::encoded(test::noise({30, 20}), "jpeg").first(100)),
        folder.add(u"other.png"_s, "GIF89a\x01"),
        folder.url(u"not-there.jpg"_s),
        QUrl(u"https://example.org/cover.jpg"_s),
    };
    for (const QUrl &url : urls) {
        EXPECT_EQ(errorOf(folder, url, std::nullopt), CoverArtError::unreadableImage(url));
        EXPECT_EQ(errorOf(folder, url, 1), CoverArtError::unreadableImage(url));
    }
    EXPECT_FALSE(QFileInfo::exists(folder.artworkPath()));
}

TEST(CoverArtPreparation, LeavesNoFileWhenEveryTryFails)
{
    const PictureFolder folder;
    const QByteArray png = test::encoded(test::noise({100, 100}), "png");
    const QList<QUrl> urls{
        folder.add(u"truncated.png"_s, png.first(png.size() / 2)),
        folder.add(u"claiming.png"_s, test::pngClaiming({60'000, 60'000})),
        folder.add(u"claiming.jpg"_s, test::jpegClaiming({60'000, 60'000})),
        folder.add(u"progressive.jpg"_s, test::jpegClaiming({20'000, 20'000}, true)),
    };
    for (const QUrl &url : urls)
        EXPECT_EQ(errorOf(folder, url, 1), CoverArtError::couldNotShrink(url));
    EXPECT_FALSE(QFileInfo::exists(folder.artworkPath()));
}

TEST(CoverArtPreparation, PassesOnWhyACopyCantBeSaved)
{
    const PictureFolder folder;
    const QUrl url = folder.add(u"cover.jpg"_s, test::encoded(test::noise({30, 20}), "jpeg"));
    const CoverArtPreparation preparation(std::make_shared<ArtworkFolder>(u"/proc/nothing-here"_s));
    EXPECT_THROW(preparation.prepare(url, 1), std::system_error);
}

TEST(CoverArtPreparation, LeavesNothingOfACopyThatTheDiskHasNoRoomFor)
{
    const test::FullArtworkDisk disk;
    if (!disk.isMounted())
        GTEST_SKIP() << "mounting isn't permitted here";
    const PictureFolder folder;
    const QUrl url = folder.add(u"cover.jpg"_s, test::encoded(test::noise({300, 200}), "jpeg"));
    EXPECT_GT(folder.preparation().prepare(url, 1).byteCount, 2 * disk.roomBytes);
    EXPECT_THROW(CoverArtPreparation(disk.artwork()).prepare(url, 1), std::system_error);
    EXPECT_EQ(disk.artworkNames(), QStringList());
}

TEST(CoverArtPreparation, RunsSideBySide)
{
    const PictureFolder folder;
    const QUrl url = folder.add(u"cover.png"_s, test::encoded(test::noise({300, 300}), "png"));
    std::vector<PreparedCoverArt> prepared(4);
    {
        std::vector<std::jthread> threads;
        for (PreparedCoverArt &result : prepared)
            threads.emplace_back([&, url] { result = folder.preparation().prepare(url, 30'000); });
    }
    EXPECT_EQ(folder.artworkNames().size(), 4);
    for (const PreparedCoverArt &result : prepared)
        EXPECT_EQ(test::readFile(result.url.toLocalFile()),
                  test::readFile(prepared.front().url.toLocalFile()));
}

} // namespace tonearm
