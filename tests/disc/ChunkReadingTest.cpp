// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/ChunkReading.h"

#include "disc/RippingFixture.h"
#include "support/Digest.h"

#include <cerrno>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::failWith;
using Sizes = QList<qint64>;

namespace {

// Tests readings through whole copies of files that are a whole number of large chunks.
class ChunkReadingTest : public test::CopyFixture
{
protected:
    // Lets every reading fail from `first` up to `last`, which fails too.
    void failReadings(int first, int last, int error = EIO) const
    {
        m_files->onRead = [first, last, error](const auto &reading) {
            if (reading.index >= first && reading.index <= last)
                failWith(error);
            return reading.bytes;
        };
    }

    QString detailOfCopying(const DiscTrack &track)
    {
        const std::optional<DiscError> error = errorOfCopying(track);
        return error ? error->text : u"no error"_s;
    }
};

} // namespace

TEST(SmallerReadSize, IsHalfInWholeFramesAndAtLeastOne)
{
    EXPECT_EQ(smallerReadSize(37632), 18816);
    EXPECT_EQ(smallerReadSize(18816), 9408);
    EXPECT_EQ(smallerReadSize(9408), 4704);
    EXPECT_EQ(smallerReadSize(4704), 2352);
    EXPECT_EQ(smallerReadSize(2352), 2352);
    EXPECT_EQ(smallerReadSize(4703), 2352);
    EXPECT_EQ(smallerReadSize(7056), 2352);
    EXPECT_EQ(smallerReadSize(35280), 16464);
    EXPECT_EQ(smallerReadSize(1), 2352);
}

TEST_F(ChunkReadingTest, OpensTheFileAnewAndReadsHalfWhenAReadingFails)
{
    failReadings(0, 0);
    EXPECT_EQ(copy(trackOf(37632 + 18816)), sha256Hex(test::noise(37632 + 18816)));
    EXPECT_EQ(m_files->log(), (QStringList{u"open"_s, u"read 37632"_s, u"close"_s, u"wait 100"_s, u"open"_s,
                                           u"seek 0"_s, u"read 18816"_s, u"read 37632"_s, u"close"_s}));
}

TEST_F(ChunkReadingTest, KeepsTheSizeThatWorked)
{
    failReadings(0, 0);
    copy(trackOf(37632 + 18816));
    EXPECT_EQ(m_workingSize, 18816);
}

TEST_F(ChunkReadingTest, TakesNoBytesForAFailure)
{
    m_files->onRead = [](const auto &reading) { return reading.index == 0 ? QByteArray() : reading.bytes; };
    EXPECT_EQ(copy(trackOf(18816)), sha256Hex(test::noise(18816)));
    EXPECT_EQ(m_workingSize, 2352);
}

TEST_F(ChunkReadingTest, ComesDownToASingleFrame)
{
    failReadings(0, 4);
    copy(trackOf(37632 + 2352));
    EXPECT_EQ(m_files->readSizes(), (Sizes{37632, 18816, 9408, 4704, 2352, 2352, 37632}));
    EXPECT_EQ(m_workingSize, 2352);
}

TEST_F(ChunkReadingTest, StaysAtASingleFrame)
{
    m_workingSize = 2352;
    failReadings(0, 4);
    copy(trackOf(2352));
    EXPECT_EQ(m_files->readSizes(), Sizes(6, 2352));
}

TEST_F(ChunkReadingTest, GivesUpAfterSixAttemptsAndLeavesNothing)
{
    failReadings(0, 1000);
    EXPECT_EQ(errorOfCopying(trackOf(100000)),
              DiscError::trackReadFailed(3, u"Input/output error. Gave up after 6 attempts at 0 bytes."_s));
    EXPECT_EQ(m_files->readSizes(), (Sizes{37632, 18816, 9408, 4704, 2352, 2352}));
    EXPECT_EQ(m_files->log().count(u"wait 100"_s), 5);
    EXPECT_EQ(m_files->log().last(), u"close"_s);
    EXPECT_FALSE(hasDestination());
}

TEST_F(ChunkReadingTest, KeepsNoSizeThatNeverWorked)
{
    failReadings(0, 1000);
    EXPECT_TRUE(errorOfCopying(trackOf(100000)));
    EXPECT_EQ(m_workingSize, 37632);
}

TEST_F(ChunkReadingTest, TellsTheLastFailureAndTheOffset)
{
    m_files->onRead = [](const auto &reading) {
        if (reading.index >= 1 && reading.index < 6)
            failWith(EIO);
        return reading.index == 0 ? reading.bytes : QByteArray();
    };
    EXPECT_EQ(detailOfCopying(trackOf(100000)),
              u"The drive returned no data. Gave up after 6 attempts at 37632 bytes."_s);
}

TEST_F(ChunkReadingTest, CountsTheAttemptsOfEachChunk)
{
    m_files->onRead = [](const auto &reading) {
        return reading.index == 5 || reading.index == 11 ? reading.bytes : QByteArray();
    };
    EXPECT_EQ(detailOfCopying(trackOf(37632)),
              u"The drive returned no data. Gave up after 6 attempts at 4704 bytes."_s);
}

TEST_F(ChunkReadingTest, TellsThatTheFileCouldNotBeOpenedAnew)
{
    failReadings(0, 0);
    m_files->onOpen = [](int index) {
        if (index > 0)
            failWith(ENOENT);
    };
    EXPECT_EQ(detailOfCopying(trackOf(100000)),
              u"The track could not be reopened. Gave up after 6 attempts at 0 bytes."_s);
    EXPECT_EQ(m_files->readSizes(), Sizes{37632});
}

TEST_F(ChunkReadingTest, ReadsLessAlsoAfterOpeningFailed)
{
    failReadings(0, 0);
    m_files->onOpen = [](int index) {
        if (index == 1 || index == 2)
            failWith(ENXIO);
    };
    EXPECT_EQ(copy(trackOf(4704 + 37632)), sha256Hex(test::noise(4704 + 37632)));
    EXPECT_EQ(m_files->readSizes(), (Sizes{37632, 4704, 37632}));
}

TEST_F(ChunkReadingTest, TellsWhyItCouldNotGoToTheOffset)
{
    failReadings(1, 1);
    m_files->onSeek = [](int) { failWith(EINVAL); };
    EXPECT_EQ(detailOfCopying(trackOf(100000)),
              u"Invalid argument. Gave up after 6 attempts at 37632 bytes."_s);
    EXPECT_EQ(m_files->readSizes(), (Sizes{37632, 37632}));
    EXPECT_EQ(m_files->log().count(u"seek 37632"_s), 5);
}

TEST_F(ChunkReadingTest, GoesBackToWhereTheCopyIs)
{
    m_files->onRead = [](const auto &reading) { return reading.index == 1 ? QByteArray() : reading.bytes; };
    EXPECT_EQ(copy(trackOf(100000)), sha256Hex(test::noise(100000)));
    EXPECT_EQ(m_files->log().count(u"seek 37632"_s), 1);
}

// Whatever fails, a copy that ends well is the file.
TEST_F(ChunkReadingTest, BringsAllBytesThroughAnyFailuresThatItSurvives)
{
    m_files->onRead = [](const auto &reading) {
        if (reading.index % 3 == 1)
            failWith(EIO);
        if (reading.index % 7 == 2)
            return QByteArray();
        return reading.index % 5 == 3 ? reading.bytes.first(std::min<qint64>(reading.bytes.size(), 777))
                                      : reading.bytes;
    };
    EXPECT_EQ(copy(trackOf(250000)), sha256Hex(test::noise(250000)));
    EXPECT_EQ(test::readFile(destination()), test::noise(250000));
}

} // namespace tonearm
