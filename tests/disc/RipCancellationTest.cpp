// SPDX-License-Identifier: GPL-3.0-or-later
// A rip can be cancelled at any point, also while the drive doesn't answer, and leaves nothing behind.
#include "disc/RippingFixture.h"
#include "support/Cancellation.h"

#include <QDir>

#include <atomic>
#include <cerrno>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::await;
using test::awaitError;
using test::failWith;
using test::Gate;

namespace {

class RipCancellationTest : public test::RippingFixture
{
protected:
    void TearDown() override { m_gate->open(); }

    // Whether the rip ends as cancelled.
    bool isCancelled(DiscRippingService &service, const DiscTrack &track)
    {
        return awaitError<CancellationError>(service.rip(track, {}, {}, m_stop.get_token())).has_value();
    }

    // Begins a rip that stalls, cancels it, and tells whether it ends so while the drive still stalls.
    bool isCancelledWhileStalled()
    {
        DiscRippingService service(m_temporary.path(), m_files);
        auto ripping = service.rip(trackOf(100000), {}, {}, m_stop.get_token());
        const bool isStalled = test::eventually([this] { return m_gate->isReached(); });
        m_stop.request_stop();
        return awaitError<CancellationError>(std::move(ripping)) && isStalled;
    }

    // Outlives the test's own frame on the threads that are left behind.
    std::shared_ptr<Gate> m_gate = std::make_shared<Gate>();
};

} // namespace

TEST_F(RipCancellationTest, BeginsNothingWhenItIsCancelledBefore)
{
    DiscRippingService service(m_temporary.path(), m_files);
    m_stop.request_stop();
    EXPECT_TRUE(isCancelled(service, trackOf(5000)));
    EXPECT_EQ(m_files->log().join(u' ').contains(u"read"_s), false);
    EXPECT_EQ(rips(), QStringList());
}

TEST_F(RipCancellationTest, LeavesNothingWhereverItIsCancelled)
{
    const DiscTrack track = trackOf(37632 + 18816);
    QStringList outcomes;
    // Two looks at the file, an opening, a reading that fails, a closing, an opening and a seek, the two
    // readings of it all, a closing.
    for (int step = 0; step < 10; ++step) {
        const auto files = std::make_shared<test::FaultyFiles>();
        files->onRead = [](const auto &reading) { return reading.index == 0 ? QByteArray() : reading.bytes; };
        std::stop_source stop;
        std::atomic<int> count = 0;
        files->onEverything = [&] {
            if (count++ == step)
                stop.request_stop();
        };
        DiscRippingService service(m_temporary.path(), files, {.beforeRetry = std::chrono::milliseconds(1)});
        const bool wasCancelled =
            awaitError<CancellationError>(service.rip(track, {}, {}, stop.get_token())).has_value();
        outcomes.append(u"%1 %2"_s.arg(wasCancelled ? u"cancelled"_s : u"done"_s).arg(rips().size()));
        QDir(folder()).removeRecursively();
    }
    // With the last reading the copy is complete.
    EXPECT_EQ(outcomes, QStringList(8, u"cancelled 0"_s) + QStringList(2, u"done 1"_s));
}

TEST_F(RipCancellationTest, LeavesAStalledReadingBehind)
{
    m_files->onRead = [gate = m_gate](const auto &reading) {
        gate->pass();
        return reading.bytes;
    };
    EXPECT_TRUE(isCancelledWhileStalled());
    EXPECT_EQ(rips(), QStringList());
}

TEST_F(RipCancellationTest, LeavesAStalledLaterReadingBehind)
{
    m_files->onRead = [gate = m_gate](const auto &reading) {
        if (reading.index == 1)
            gate->pass();
        return reading.bytes;
    };
    EXPECT_TRUE(isCancelledWhileStalled());
    EXPECT_EQ(rips(), QStringList());
}

TEST_F(RipCancellationTest, KeepsNothingThatWasReadAhead)
{
    int count = 0;
    const auto onProgress = [&](double) {
        ++count;
        m_stop.request_stop();
    };
    DiscRippingService service(m_temporary.path(), m_files);
    EXPECT_TRUE(
        awaitError<CancellationError>(service.rip(trackOf(10 * 37632), {}, onProgress, m_stop.get_token())));
    EXPECT_EQ(count, 1);
    EXPECT_EQ(rips(), QStringList());
}

TEST_F(RipCancellationTest, LeavesNothingOfAVerificationOrAPrefix)
{
    const auto stopDuringTheSecondReading = [this](const auto &reading) {
        if (reading.index == 1)
            m_stop.request_stop();
        return reading.bytes;
    };
    m_files->onRead = stopDuringTheSecondReading;
    DiscRippingService verifying(m_temporary.path(), m_files);
    EXPECT_TRUE(
        awaitError<CancellationError>(verifying.verify(trackOf(100000), {}, u"x"_s, {}, m_stop.get_token())));
    EXPECT_EQ(rips(), QStringList());

    m_stop = {};
    m_files = std::make_shared<test::FaultyFiles>();
    m_files->onRead = stopDuringTheSecondReading;
    DiscRippingService previewing(m_temporary.path(), m_files);
    EXPECT_TRUE(awaitError<CancellationError>(previewing.prefix(trackOf(100000), 0.5, m_stop.get_token())));
    EXPECT_EQ(rips(), QStringList());
}

TEST_F(RipCancellationTest, LeavesAStalledOpeningBehind)
{
    m_files->onOpen = [gate = m_gate](int) { gate->pass(); };
    EXPECT_TRUE(isCancelledWhileStalled());
    EXPECT_EQ(rips(), QStringList());
}

TEST_F(RipCancellationTest, LeavesAStalledLookAtTheFileBehind)
{
    m_files->onEverything = [gate = m_gate] { gate->pass(); };
    EXPECT_TRUE(isCancelledWhileStalled());
    EXPECT_EQ(rips(), QStringList());
}

TEST_F(RipCancellationTest, LeavesAStalledSecondOpeningBehind)
{
    m_files->onRead = [](const auto &) { return QByteArray(); };
    m_files->onOpen = [gate = m_gate](int index) {
        if (index == 1)
            gate->pass();
    };
    EXPECT_TRUE(isCancelledWhileStalled());
    EXPECT_EQ(rips(), QStringList());
}

TEST_F(RipCancellationTest, ReadsOnAfterAStallThatEnds)
{
    m_files->onRead = [gate = m_gate](const auto &reading) {
        gate->pass();
        return reading.bytes;
    };
    DiscRippingService service(m_temporary.path(), m_files);
    auto ripping = service.rip(trackOf(37632), {}, {}, m_stop.get_token());
    EXPECT_TRUE(test::eventually([this] { return m_gate->isReached(); }));
    m_gate->open();
    EXPECT_EQ(test::readFile(await(std::move(ripping)).url.toLocalFile()), test::noise(37632));
}

TEST_F(RipCancellationTest, ServesOthersAfterAStalledReadingWasLeftBehind)
{
    m_files->onRead = [gate = m_gate](const auto &reading) {
        if (reading.index == 0)
            gate->pass();
        return reading.bytes;
    };
    DiscRippingService service(m_temporary.path(), m_files);
    auto stalled = service.rip(trackOf(37632), {}, {}, m_stop.get_token());
    ASSERT_TRUE(test::eventually([this] { return m_gate->isReached(); }));
    m_stop.request_stop();
    EXPECT_TRUE(awaitError<CancellationError>(std::move(stalled)));
    EXPECT_EQ(test::readFile(await(service.rip(trackOf(37632), {}, {}, {})).url.toLocalFile()),
              test::noise(37632));
}

TEST_F(RipCancellationTest, EndsACallThatWaitsBehindAStalledOne)
{
    m_files->onRead = [gate = m_gate](const auto &reading) {
        gate->pass();
        return reading.bytes;
    };
    DiscRippingService service(m_temporary.path(), m_files);
    auto stalled = service.rip(trackOf(37632), {}, {}, {});
    ASSERT_TRUE(test::eventually([this] { return m_gate->isReached(); }));
    auto ripping = service.rip(trackOf(37632, 4), {}, {}, m_stop.get_token());
    auto prefix = service.prefix(trackOf(37632, 4), 0.01, m_stop.get_token());
    auto discarding = service.discardPrefixes(m_stop.get_token());
    m_stop.request_stop();
    EXPECT_TRUE(awaitError<CancellationError>(std::move(ripping)));
    EXPECT_TRUE(awaitError<CancellationError>(std::move(prefix)));
    EXPECT_TRUE(awaitError<CancellationError>(std::move(discarding)));
    EXPECT_EQ(rips().size(), 1);
    m_gate->open();
    await(std::move(stalled));
}

TEST_F(RipCancellationTest, EndsTheWaitBeforeAnotherAttempt)
{
    m_files->onRead = [](const auto &) { return QByteArray(); };
    std::atomic<bool> isWaiting = false;
    const RipWaits waits = {.beforeRetry = std::chrono::hours(1),
                            .sleep = [&](std::chrono::milliseconds time, std::stop_token stop) {
                                isWaiting = true;
                                return interruptibleSleep(time, std::move(stop));
                            }};
    DiscRippingService service(m_temporary.path(), m_files, waits);
    auto ripping = service.rip(trackOf(100000), {}, {}, m_stop.get_token());
    EXPECT_TRUE(test::eventually([&] { return isWaiting.load(); }));
    m_stop.request_stop();
    EXPECT_TRUE(awaitError<CancellationError>(std::move(ripping)));
    EXPECT_EQ(rips(), QStringList());
    // What the wait was for still happens; the attempt after it sees the request.
    EXPECT_EQ(m_files->readSizes(), (QList<qint64>{37632, 18816}));
}

} // namespace tonearm
