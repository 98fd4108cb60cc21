// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/DiscRippingService.h"

#include "disc/RippingFixture.h"
#include "support/Digest.h"

#include <QRegularExpression>
#include <QThread>

#include <cerrno>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::await;
using test::failWith;
using Sizes = QList<qint64>;

namespace {

class DiscRippingServiceTest : public test::RippingFixture
{
protected:
    RippedTrack rip(const DiscTrack &track, TrackRipping::Progress onProgress = {})
    {
        return await(m_service.rip(track, {}, std::move(onProgress), m_stop.get_token()));
    }

    bool verify(const DiscTrack &track, const QString &checksum)
    {
        return await(m_service.verify(track, {}, checksum, {}, m_stop.get_token()));
    }

    QString prefix(const DiscTrack &track, double seconds)
    {
        return await(m_service.prefix(track, seconds, m_stop.get_token())).toLocalFile();
    }

    DiscRippingService m_service{m_temporary.path(), m_files, noWaits()};
};

// "<use>-<number>-<UUID>.aiff"
bool isNamed(const QString &name, const QString &use)
{
    const QRegularExpression form(
        u"^%1-[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}\\.aiff$"_s.arg(use));
    return form.match(name).hasMatch();
}

} // namespace

TEST_F(DiscRippingServiceTest, TellsItsName)
{
    EXPECT_EQ(m_service.readerName(), u"CDDA filesystem"_s);
}

TEST_F(DiscRippingServiceTest, RipsATrackToATemporaryFile)
{
    const RippedTrack ripped = rip(trackOf(100000));
    EXPECT_EQ(ripped.checksum, sha256Hex(test::noise(100000)));
    EXPECT_EQ(ripped.assurance, RipVerification::unverified);
    EXPECT_EQ(test::readFile(ripped.url.toLocalFile()), test::noise(100000));
    ASSERT_EQ(rips().size(), 1);
    EXPECT_EQ(ripped.url, QUrl::fromLocalFile(folder() + u'/' + rips().front()));
    EXPECT_TRUE(isNamed(rips().front(), u"track-3"_s)) << rips().front().toStdString();
}

TEST_F(DiscRippingServiceTest, GivesEachRipAFileOfItsOwn)
{
    const DiscTrack track = trackOf(5000);
    EXPECT_NE(rip(track).url, rip(track).url);
    EXPECT_EQ(rips().size(), 2);
}

TEST_F(DiscRippingServiceTest, ReportsProgressOnItsOwnThread)
{
    QList<double> fractions;
    QThread *thread = nullptr;
    const auto onProgress = [&](double fraction) {
        fractions.append(fraction);
        thread = QThread::currentThread();
    };
    rip(trackOf(2 * 37632), onProgress);
    EXPECT_EQ(fractions, (QList<double>{0.5, 1.0, 1.0}));
    EXPECT_NE(thread, QThread::currentThread());
}

TEST_F(DiscRippingServiceTest, VerifiesThatASecondReadingIsTheSame)
{
    const DiscTrack track = trackOf(100000);
    const QString checksum = rip(track).checksum;
    EXPECT_TRUE(verify(track, checksum));
    EXPECT_FALSE(verify(track, checksum.toUpper()));
    EXPECT_FALSE(verify(track, {}));
    EXPECT_EQ(rips().size(), 1);
}

TEST_F(DiscRippingServiceTest, SeesThatASecondReadingDiffers)
{
    const DiscTrack track = trackOf(5000);
    const QString checksum = rip(track).checksum;
    test::writeFile(track.audioFileURL.toLocalFile(), test::noise(5000).replace(4000, 1, "x"));
    EXPECT_FALSE(verify(track, checksum));
    EXPECT_EQ(rips().size(), 1);
}

TEST_F(DiscRippingServiceTest, NamesAFileForVerificationWhileItLasts)
{
    QStringList during;
    const auto onProgress = [&](double) { during = rips(); };
    EXPECT_FALSE(await(m_service.verify(trackOf(5000, 12), {}, u"x"_s, onProgress, {})));
    ASSERT_EQ(during.size(), 1);
    EXPECT_TRUE(isNamed(during.front(), u"verify-12"_s)) << during.front().toStdString();
    EXPECT_EQ(rips(), QStringList());
}

TEST_F(DiscRippingServiceTest, TakesAFailedReadingForNoAnswer)
{
    m_files->onRead = [](const auto &) { return QByteArray(); };
    const auto error = test::errorOf<DiscError>([&] { return verify(trackOf(5000), u"x"_s); });
    EXPECT_EQ(error, DiscError::trackReadFailed(
                         3, u"The drive returned no data. Gave up after 6 attempts at 0 bytes."_s));
    EXPECT_EQ(rips(), QStringList());
}

TEST_F(DiscRippingServiceTest, LeavesNothingOfAFailedRip)
{
    m_files->onRead = [](const auto &reading) {
        if (reading.offset > 50000)
            failWith(EIO);
        return reading.bytes;
    };
    EXPECT_TRUE(test::errorOf<DiscError>([&] { return rip(trackOf(100000)); }));
    EXPECT_EQ(rips(), QStringList());
}

TEST_F(DiscRippingServiceTest, PassesOnWhyThereIsNoFolder)
{
    test::writeFile(m_temporary.filePath(u"file"_s), {});
    DiscRippingService service(m_temporary.filePath(u"file"_s));
    const auto error = test::awaitError<std::system_error>(service.verify(trackOf(5000), {}, u"x"_s, {}, {}));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), std::errc::not_a_directory);
    EXPECT_TRUE(test::awaitError<std::system_error>(service.rip(trackOf(5000), {}, {}, {})));
    EXPECT_TRUE(test::awaitError<std::system_error>(service.prefix(trackOf(5000), 1, {})));
}

TEST_F(DiscRippingServiceTest, ReadsSingleFramesAfterTheFirstTrackThatEndedOnOne)
{
    rip(trackOf(100000));
    const qsizetype before = m_files->readSizes().size();
    rip(trackOf(9408, 4));
    EXPECT_EQ(m_files->readSizes().sliced(before), Sizes(4, 2352));
}

TEST_F(DiscRippingServiceTest, ReadsLargeChunksAsLongAsTracksEndOnThem)
{
    rip(trackOf(2 * 37632));
    rip(trackOf(37632, 4));
    EXPECT_EQ(m_files->readSizes(), Sizes(3, 37632));
}

TEST_F(DiscRippingServiceTest, GivesThePrefixOfATrack)
{
    const QString path = prefix(trackOf(1000000), 1);
    // 75 frames and one more.
    EXPECT_EQ(test::readFile(path), test::noise(76 * 2352));
    ASSERT_EQ(rips().size(), 1);
    EXPECT_TRUE(isNamed(rips().front(), u"preview-3"_s)) << rips().front().toStdString();
}

TEST_F(DiscRippingServiceTest, RoundsAPrefixUpToWholeFrames)
{
    const DiscTrack track = trackOf(20000);
    EXPECT_EQ(test::readFile(prefix(track, 0.02)).size(), 3 * 2352);
    EXPECT_EQ(test::readFile(prefix(track, 0.04)).size(), 4 * 2352);
    EXPECT_EQ(test::readFile(prefix(track, 0)).size(), 1 * 2352);
}

TEST_F(DiscRippingServiceTest, KeepsAPrefixAsLongAsItsFileIsThere)
{
    const DiscTrack track = trackOf(20000);
    const QString first = prefix(track, 0.02);
    const qsizetype readings = m_files->readSizes().size();
    EXPECT_EQ(prefix(track, 0.02), first);
    EXPECT_EQ(m_files->readSizes().size(), readings);

    ASSERT_TRUE(QFile::remove(first));
    const QString second = prefix(track, 0.02);
    EXPECT_NE(second, first);
    EXPECT_EQ(test::readFile(second), test::noise(3 * 2352));
    EXPECT_EQ(prefix(track, 0.02), second);
}

TEST_F(DiscRippingServiceTest, KeepsPrefixesOfOtherTracksAndLengthsApart)
{
    prefix(trackOf(20000, 1), 0.02);
    prefix(trackOf(20000, 2), 0.02);
    prefix(trackOf(20000, 2), 0.04);
    EXPECT_EQ(rips().size(), 3);
}

TEST_F(DiscRippingServiceTest, DiscardsPrefixesAndNothingElse)
{
    const RippedTrack ripped = rip(trackOf(5000));
    const QString gone = prefix(trackOf(20000, 1), 0.02);
    prefix(trackOf(20000, 2), 0.02);
    ASSERT_TRUE(QFile::remove(gone));
    await(m_service.discardPrefixes({}));
    EXPECT_EQ(rips(), QStringList{ripped.url.fileName()});
    prefix(trackOf(20000, 1), 0.02);
    EXPECT_EQ(rips().size(), 2);
}

TEST_F(DiscRippingServiceTest, FailsForAPrefixLongerThanTheTrack)
{
    const auto error = test::errorOf<DiscError>([&] { return prefix(trackOf(5000), 1); });
    EXPECT_EQ(error, DiscError::trackReadFailed(
                         3, u"The drive returned no data. Gave up after 6 attempts at 5000 bytes."_s));
    EXPECT_EQ(rips(), QStringList());
}

} // namespace tonearm
