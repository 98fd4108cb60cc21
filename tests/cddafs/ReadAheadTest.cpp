// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/ReadAhead.h"

#include "helpers/FailingSource.h"

#include <gtest/gtest.h>

namespace tonearm {

using test::FailingSource;
using Readings = QList<FailingSource::Reading>;

namespace {

constexpr qint64 window = ReadAhead::window;

// How many sectors came, all of them with the right bytes; -1 if some were wrong.
qint64 sectorsRead(ReadAhead &reader, qint64 sector, qint64 count)
{
    const QByteArray got = reader.sectors(sector, count).toByteArray();
    const qint64 gotCount = got.size() / discFrameBytes;
    QByteArray expected;
    for (qint64 number = sector; number < sector + gotCount; ++number)
        expected += FailingSource::sector(number);
    return got == expected ? gotCount : -1;
}

} // namespace

TEST(ReadAhead, ReadsNoMoreThanAskedAtFirst)
{
    FailingSource source;
    ReadAhead reader(source, 0, 1000);
    EXPECT_EQ(sectorsRead(reader, 100, 16), 16);
    EXPECT_EQ(source.takeReadings(), (Readings{{100, 16}}));
}

TEST(ReadAhead, ReadsAheadAsSoonAsTheReadingIsSequential)
{
    FailingSource source;
    ReadAhead reader(source, 0, 1000);
    for (qint64 sector = 0; sector < 16 + window; ++sector)
        ASSERT_EQ(sectorsRead(reader, sector, 1), 1);
    EXPECT_EQ(source.takeReadings(), (Readings{{0, 1}, {1, window}, {1 + window, window}}));
}

TEST(ReadAhead, GivesWhatIsAtHandBeforeItReadsOn)
{
    FailingSource source;
    ReadAhead reader(source, 0, 1000);
    EXPECT_EQ(sectorsRead(reader, 0, 10), 10);
    EXPECT_EQ(sectorsRead(reader, 10, 60), 60);
    EXPECT_EQ(sectorsRead(reader, 70, 10), window - 60);
    EXPECT_EQ(source.takeReadings(), (Readings{{0, 10}, {10, window}}));
    EXPECT_EQ(sectorsRead(reader, 10 + window, 6), 6);
    EXPECT_EQ(source.takeReadings(), (Readings{{10 + window, window}}));
}

TEST(ReadAhead, ReadsOnlyWhatIsAskedAfterAJump)
{
    FailingSource source;
    ReadAhead reader(source, 0, 1000);
    sectorsRead(reader, 0, 10);
    sectorsRead(reader, 10, 10);
    source.takeReadings();
    EXPECT_EQ(sectorsRead(reader, 500, 10), 10);
    EXPECT_EQ(source.takeReadings(), (Readings{{500, 10}}));
}

TEST(ReadAhead, StaysWithinItsRange)
{
    FailingSource source;
    ReadAhead reader(source, 20, 100);
    EXPECT_EQ(sectorsRead(reader, 80, 10), 10);
    EXPECT_EQ(sectorsRead(reader, 90, 30), 10);
    EXPECT_EQ(sectorsRead(reader, 100, 1), 0);
    EXPECT_EQ(sectorsRead(reader, 19, 1), 0);
    EXPECT_EQ(sectorsRead(reader, 20, 0), 0);
    EXPECT_EQ(source.takeReadings(), (Readings{{80, 10}, {90, 10}}));
}

TEST(ReadAhead, FallsBackToWhatWasAskedAtABadSector)
{
    FailingSource source({50});
    ReadAhead reader(source, 0, 1000);
    EXPECT_EQ(sectorsRead(reader, 0, 16), 16);
    EXPECT_EQ(sectorsRead(reader, 16, 16), 16);
    EXPECT_EQ(source.takeReadings(), (Readings{{0, 16}, {16, window}, {16, 16}}));
}

TEST(ReadAhead, GivesTheGoodSectorsBeforeABadOne)
{
    FailingSource source({50});
    ReadAhead reader(source, 0, 1000);
    EXPECT_EQ(sectorsRead(reader, 48, 16), 2);
    EXPECT_EQ(source.takeReadings(), (Readings{{48, 16}, {48, 1}, {49, 1}, {50, 1}}));
    EXPECT_EQ(sectorsRead(reader, 50, 1), 0);
    EXPECT_EQ(source.takeReadings(), (Readings{{50, 1}}));
}

TEST(ReadAhead, DoesNotReadAheadAgainBeforeItIsPastTheBadSector)
{
    FailingSource source({40});
    ReadAhead reader(source, 0, 1000);
    sectorsRead(reader, 0, 16);
    EXPECT_EQ(sectorsRead(reader, 16, 16), 16);
    source.takeReadings();
    EXPECT_EQ(sectorsRead(reader, 32, 4), 4);
    EXPECT_EQ(sectorsRead(reader, 36, 4), 4);
    EXPECT_EQ(sectorsRead(reader, 41, 4), 4);
    EXPECT_EQ(sectorsRead(reader, 45, 35), 35);
    EXPECT_EQ(source.takeReadings(), (Readings{{32, 4}, {36, 4}, {41, 4}, {45, 35}}));
    EXPECT_EQ(sectorsRead(reader, 80, 4), 4);
    EXPECT_EQ(source.takeReadings(), (Readings{{80, window}}));
}

TEST(ReadAhead, AsksTheDiscAgainAfterAFailure)
{
    FailingSource source({50});
    ReadAhead reader(source, 0, 1000);
    EXPECT_EQ(sectorsRead(reader, 50, 1), 0);
    EXPECT_EQ(sectorsRead(reader, 50, 1), 0);
    EXPECT_EQ(source.takeReadings(), (Readings{{50, 1}, {50, 1}}));
}

} // namespace tonearm
