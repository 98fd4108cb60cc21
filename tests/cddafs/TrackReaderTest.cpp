// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/TrackReader.h"

#include "cddafs/AiffHeader.h"
#include "helpers/FailingSource.h"

#include <gtest/gtest.h>

#include <random>

namespace tonearm {

using test::FailingSource;
using Readings = QList<FailingSource::Reading>;

namespace {

constexpr AudioTrack track = {.number = 3, .start = 500, .sectors = 200};

std::optional<QByteArray> bytesRead(TrackReader &reader, qint64 offset, qint64 size)
{
    QByteArray bytes(size, '?');
    const std::optional<qint64> count = reader.read(offset, size, bytes.data());
    return count ? std::optional(bytes.first(*count)) : std::nullopt;
}

QByteArray wholeFile()
{
    return aiffHeader(track.sectors) + FailingSource::fileSectors(track.start, track.sectors);
}

// The offset in the file of one of the track's sectors.
qint64 offsetInFile(qint64 sector)
{
    return discFrameBytes + sector * discFrameBytes;
}

} // namespace

TEST(TrackReader, GivesTheHeaderThenTheSamplesInBigEndianOrder)
{
    FailingSource source;
    TrackReader reader(source, track);
    const QByteArray file = wholeFile();
    EXPECT_EQ(trackFileSize(track), file.size());
    EXPECT_EQ(bytesRead(reader, 0, file.size() + 100), file);
}

TEST(TrackReader, GivesAnyPieceOfTheFile)
{
    FailingSource source;
    TrackReader reader(source, track);
    const QByteArray file = wholeFile();
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        const auto offset = std::uniform_int_distribution<qint64>(0, file.size())(random);
        const auto size = std::uniform_int_distribution<qint64>(0, 40000)(random);
        ASSERT_EQ(bytesRead(reader, offset, size), file.mid(offset, size)) << offset << ' ' << size;
    }
}

TEST(TrackReader, ReadsSequentiallyInPiecesOfAnySize)
{
    for (const qint64 size : {1000, 2352, 4096, 37632, 131072}) {
        FailingSource source;
        TrackReader reader(source, track);
        QByteArray file;
        while (const auto piece = bytesRead(reader, file.size(), size)) {
            if (piece->isEmpty())
                break;
            file += *piece;
        }
        EXPECT_EQ(file, wholeFile()) << size;
    }
}

TEST(TrackReader, ReadsWholeSectorsFromTheDiscForWholeSectorsOfTheFile)
{
    FailingSource source;
    TrackReader reader(source, track);
    bytesRead(reader, offsetInFile(10), 16 * discFrameBytes);
    EXPECT_EQ(source.takeReadings(), (Readings{{510, 16}}));
}

TEST(TrackReader, HasNothingBehindTheEnd)
{
    FailingSource source;
    TrackReader reader(source, track);
    EXPECT_EQ(bytesRead(reader, trackFileSize(track), 100), QByteArray());
    EXPECT_EQ(bytesRead(reader, trackFileSize(track) + 5000, 100), QByteArray());
    EXPECT_EQ(bytesRead(reader, -1, 100), std::nullopt);
    EXPECT_EQ(source.takeReadings(), Readings());
}

TEST(TrackReader, GivesAShortReadBeforeABadSectorAndFailsAtIt)
{
    FailingSource source({520});
    TrackReader reader(source, track);
    EXPECT_EQ(bytesRead(reader, offsetInFile(10), 16 * discFrameBytes), FailingSource::fileSectors(510, 10));
    EXPECT_EQ(bytesRead(reader, offsetInFile(20), 16 * discFrameBytes), std::nullopt);
    EXPECT_EQ(bytesRead(reader, offsetInFile(20) + 100, 1), std::nullopt);
    EXPECT_EQ(bytesRead(reader, offsetInFile(21), discFrameBytes), FailingSource::fileSectors(521, 1));
}

TEST(TrackReader, GivesTheHeaderBeforeABadFirstSector)
{
    FailingSource source({500});
    TrackReader reader(source, track);
    EXPECT_EQ(bytesRead(reader, 0, 16 * discFrameBytes), aiffHeader(track.sectors));
    EXPECT_EQ(bytesRead(reader, discFrameBytes, discFrameBytes), std::nullopt);
}

TEST(TrackReader, ReadsTheDiscAgainForEachOpening)
{
    FailingSource source;
    TrackReader first(source, track);
    bytesRead(first, offsetInFile(0), discFrameBytes);
    const Readings readings = source.takeReadings();
    TrackReader second(source, track);
    bytesRead(second, offsetInFile(0), discFrameBytes);
    EXPECT_EQ(readings, (Readings{{500, 1}}));
    EXPECT_EQ(source.takeReadings(), readings);
}

} // namespace tonearm
