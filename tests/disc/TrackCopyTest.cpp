// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/TrackCopy.h"

#include "disc/RippingFixture.h"
#include "support/Digest.h"

#include <cerrno>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::failWith;
using Sizes = QList<qint64>;

namespace {

class TrackCopyTest : public test::CopyFixture
{
};

} // namespace

TEST_F(TrackCopyTest, CopiesAFileAndGivesItsChecksum)
{
    EXPECT_EQ(copy(trackOf(100000)), sha256Hex(test::noise(100000)));
    EXPECT_EQ(test::readFile(destination()), test::noise(100000));
}

TEST_F(TrackCopyTest, ReadsChunksAndThenSingleFrames)
{
    copy(trackOf(100000));
    EXPECT_EQ(m_files->readSizes(), Sizes(2, 37632) + Sizes(11, 2352));
    EXPECT_FALSE(m_files->log().join(u' ').contains(u"truncate"_s));
}

TEST_F(TrackCopyTest, ReadsASingleFrameLessThanAChunkInOne)
{
    copy(trackOf(37632));
    EXPECT_EQ(m_files->readSizes(), Sizes{37632});
    EXPECT_EQ(m_workingSize, 37632);
}

TEST_F(TrackCopyTest, LeavesTheWorkingSizeAtTheFrameThatItEndedOn)
{
    copy(trackOf(100000));
    EXPECT_EQ(m_workingSize, 2352);
}

TEST_F(TrackCopyTest, ReachesALimitOfWholeFramesExactly)
{
    constexpr qint64 limit = 2352 * 76;
    EXPECT_EQ(copy(trackOf(1000000), limit), sha256Hex(test::noise(limit)));
    EXPECT_EQ(test::readFile(destination()), test::noise(limit));
    EXPECT_EQ(m_files->readSizes(), Sizes(4, 37632) + Sizes(12, 2352));
    EXPECT_FALSE(m_files->log().join(u' ').contains(u"truncate"_s));
}

TEST_F(TrackCopyTest, CutsAnyOtherLimitButKeepsWhatWasCutInTheChecksum)
{
    EXPECT_EQ(copy(trackOf(10000), 3000), sha256Hex(test::noise(4704)));
    EXPECT_EQ(test::readFile(destination()), test::noise(3000));
    EXPECT_EQ(m_files->log(),
              (QStringList{u"open"_s, u"read 2352"_s, u"read 2352"_s, u"truncate 3000"_s, u"close"_s}));
}

TEST_F(TrackCopyTest, FailsBehindTheEndOfAFileThatIsShorterThanTheLimit)
{
    EXPECT_EQ(errorOfCopying(trackOf(5000), 7056),
              DiscError::trackReadFailed(
                  3, u"The drive returned no data. Gave up after 6 attempts at 5000 bytes."_s));
    EXPECT_FALSE(hasDestination());
}

TEST_F(TrackCopyTest, FailsBehindTheEndOfAFileWhoseSizeIsNotKnown)
{
    m_files->isSizeKnown = false;
    EXPECT_EQ(errorOfCopying(trackOf(40000)),
              DiscError::trackReadFailed(
                  3, u"The drive returned no data. Gave up after 6 attempts at 40000 bytes."_s));
    EXPECT_EQ(m_files->readSizes().first(3), Sizes(3, 37632));
    EXPECT_FALSE(hasDestination());
}

TEST_F(TrackCopyTest, ReachesALimitInAFileWhoseSizeIsNotKnown)
{
    m_files->isSizeKnown = false;
    EXPECT_EQ(copy(trackOf(10000), 4704), sha256Hex(test::noise(4704)));
}

TEST_F(TrackCopyTest, MakesAnEmptyFileOfAnEmptyOne)
{
    QList<double> progress;
    const auto onProgress = [&](double fraction) { progress.append(fraction); };
    EXPECT_EQ(copy(trackOf(0), {}, onProgress), sha256Hex({}));
    EXPECT_EQ(progress, QList<double>{1.0});
    EXPECT_EQ(test::readFile(destination()), QByteArray());
    EXPECT_EQ(m_files->readSizes(), Sizes());
}

TEST_F(TrackCopyTest, ReadsNothingForALimitOfZero)
{
    EXPECT_EQ(copy(trackOf(5000), 0), sha256Hex({}));
    EXPECT_EQ(m_files->readSizes(), Sizes());
}

TEST_F(TrackCopyTest, ReportsTheShareOfWhatIsExpected)
{
    QList<double> progress;
    const auto onProgress = [&](double fraction) { progress.append(fraction); };
    copy(trackOf(2 * 37632), {}, onProgress);
    EXPECT_EQ(progress, (QList<double>{0.5, 1.0, 1.0}));
}

TEST_F(TrackCopyTest, ReportsNoMoreThanAllWhenTheFileIsShorterThanTheLimit)
{
    QList<double> progress;
    const auto onProgress = [&](double fraction) { progress.append(fraction); };
    const DiscTrack track = trackOf(2 * 2352);
    EXPECT_TRUE(test::errorOf<DiscError>([&] { return copy(track, 3 * 2352, onProgress); }));
    EXPECT_EQ(progress, (QList<double>{0.5, 1.0}));
}

TEST_F(TrackCopyTest, ReportsNoShareWhenNothingIsKnown)
{
    m_files->isSizeKnown = false;
    QList<double> progress;
    const auto onProgress = [&](double fraction) { progress.append(fraction); };
    const DiscTrack track = trackOf(5000);
    EXPECT_TRUE(test::errorOf<DiscError>([&] { return copy(track, {}, onProgress); }));
    EXPECT_EQ(progress, QList<double>());
}

TEST_F(TrackCopyTest, GoesOnWhereAShortReadingEnded)
{
    m_files->onRead = [](const auto &reading) {
        return reading.index == 0 ? reading.bytes.first(1000) : reading.bytes;
    };
    EXPECT_EQ(copy(trackOf(100000)), sha256Hex(test::noise(100000)));
    EXPECT_EQ(m_files->readSizes().first(4), (Sizes{37632, 37632, 37632, 2352}));
    EXPECT_EQ(test::readFile(destination()), test::noise(100000));
}

TEST_F(TrackCopyTest, RefusesAFileThatIsNotThere)
{
    const DiscTrack track = {.number = 9,
                             .audioFileURL = QUrl::fromLocalFile(m_volume.filePath(u"9 None.aiff"_s))};
    EXPECT_EQ(errorOfCopying(track), DiscError::trackUnreadable(9));
    EXPECT_FALSE(hasDestination());
    EXPECT_EQ(m_files->log(), QStringList());
}

TEST_F(TrackCopyTest, RefusesAFileThatCannotBeOpened)
{
    m_files->onOpen = [](int) { failWith(EIO); };
    EXPECT_EQ(errorOfCopying(trackOf(5000)), DiscError::trackUnreadable(3));
    EXPECT_FALSE(hasDestination());
}

TEST_F(TrackCopyTest, ClosesTheSourceWhenThereIsNoDestination)
{
    m_files->onCreate = [] { failWith(EACCES); };
    EXPECT_EQ(errorOfCopying(trackOf(5000)), DiscError::trackUnreadable(3));
    EXPECT_EQ(m_files->log(), (QStringList{u"open"_s, u"close"_s}));
    EXPECT_FALSE(hasDestination());
}

TEST_F(TrackCopyTest, LeavesAloneWhatIsAtItsDestination)
{
    test::writeFile(destination(), "mine");
    EXPECT_EQ(errorOfCopying(trackOf(5000)), DiscError::trackUnreadable(3));
    EXPECT_EQ(test::readFile(destination()), "mine");
}

TEST_F(TrackCopyTest, TellsWhyItCouldNotWrite)
{
    m_files->onWrite = [](int index) {
        if (index == 1)
            failWith(ENOSPC);
    };
    EXPECT_EQ(errorOfCopying(trackOf(100000)), DiscError::trackReadFailed(3, u"No space left on device."_s));
    EXPECT_FALSE(hasDestination());
    EXPECT_EQ(m_files->log().last(), u"close"_s);
}

TEST_F(TrackCopyTest, TellsWhyItCouldNotCut)
{
    m_files->onTruncate = [] { failWith(EIO); };
    EXPECT_EQ(errorOfCopying(trackOf(10000), 3000), DiscError::trackReadFailed(3, u"Input/output error."_s));
    EXPECT_FALSE(hasDestination());
}

TEST_F(TrackCopyTest, StartsEachOfItsReadingsAtTheSizeItBeganWith)
{
    m_files->onRead = [](const auto &reading) {
        return reading.index == 0 || reading.index == 2 ? QByteArray() : reading.bytes;
    };
    copy(trackOf(3 * 37632));
    EXPECT_EQ(m_files->readSizes().first(5), (Sizes{37632, 18816, 37632, 18816, 37632}));
}

TEST_F(TrackCopyTest, StartsAtWhatACopyBeforeItCameDownTo)
{
    m_files->onRead = [](const auto &reading) { return reading.index == 0 ? QByteArray() : reading.bytes; };
    copy(trackOf(18816));
    ASSERT_TRUE(QFile::remove(destination()));
    const Sizes before = m_files->readSizes();
    copy(trackOf(18816));
    EXPECT_EQ(m_files->readSizes().sliced(before.size()), Sizes(8, 2352));
}

} // namespace tonearm
