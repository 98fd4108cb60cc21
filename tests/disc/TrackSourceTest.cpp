// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/TrackSource.h"

#include "disc/RippingFixture.h"

#include <cerrno>
#include <system_error>
#include <thread>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::await;
using test::failWith;

namespace {

class TrackSourceTest : public test::RippingFixture
{
protected:
    TrackSource sourceOf(qint64 size) { return {m_files, trackOf(size).audioFileURL.toLocalFile(), 50ms}; }

    // Whether an order of ten readings ends with the first.
    bool endsWithTheFirst()
    {
        TrackSource source = sourceOf(100000);
        await(source.open({}));
        const auto readings = await(source.read({.size = 2352, .count = 10}, m_stop.get_token()));
        return readings.size() == 1 && m_files->readSizes().size() == 1;
    }
};

} // namespace

TEST_F(TrackSourceTest, CarriesAnOrderOutByAndBy)
{
    TrackSource source = sourceOf(100000);
    await(source.open({}));
    QByteArray bytes;
    qint64 left = 10;
    while (left > 0) {
        const auto readings = await(source.read({.size = 2352, .count = left}, {}));
        for (const Reading &reading : readings)
            bytes += reading.bytes;
        left -= static_cast<qint64>(readings.size());
    }
    EXPECT_EQ(left, 0);
    EXPECT_EQ(bytes, test::noise(10 * 2352));
    EXPECT_EQ(m_files->readSizes(), QList<qint64>(10, 2352));
}

TEST_F(TrackSourceTest, GivesWhatASlowDriveReadsPieceByPiece)
{
    m_files->onRead = [](const auto &reading) {
        std::this_thread::sleep_for(10ms);
        return reading.bytes;
    };
    EXPECT_TRUE(endsWithTheFirst());
}

TEST_F(TrackSourceTest, ReadsNoFurtherThanAFailure)
{
    m_files->onRead = [](const auto &) -> QByteArray { failWith(EIO); };
    EXPECT_TRUE(endsWithTheFirst());
}

TEST_F(TrackSourceTest, ReadsNoFurtherThanTheEndOfTheFile)
{
    m_files->onRead = [](const auto &) { return QByteArray(); };
    EXPECT_TRUE(endsWithTheFirst());
}

TEST_F(TrackSourceTest, ReadsNoFurtherWhenItIsCancelled)
{
    m_files->onRead = [this](const auto &reading) {
        m_stop.request_stop();
        return reading.bytes;
    };
    EXPECT_TRUE(endsWithTheFirst());
}

TEST_F(TrackSourceTest, TellsWhyAReadingFailed)
{
    m_files->onRead = [](const auto &) -> QByteArray { failWith(EIO); };
    TrackSource source = sourceOf(100000);
    await(source.open({}));
    const auto readings = await(source.read({.size = 2352}, {}));
    ASSERT_EQ(readings.size(), 1U);
    EXPECT_EQ(readings.front().bytes, QByteArray());
    EXPECT_THROW(std::rethrow_exception(readings.front().failure), std::system_error);
}

} // namespace tonearm
