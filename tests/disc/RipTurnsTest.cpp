// SPDX-License-Identifier: GPL-3.0-or-later
// Calls take turns, and a call that waits before another attempt lets others in.
#include "disc/RippingFixture.h"

#include <atomic>
#include <cerrno>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::await;
using test::failWith;
using test::Gate;

namespace {

class RipTurnsTest : public test::RippingFixture
{
protected:
    // Waits that last until they are ended.
    RipWaits longWaits()
    {
        return {.sleep = [this](std::chrono::milliseconds, std::stop_token stop) -> QCoro::Task<> {
            ++m_waitCount;
            while (!m_mayGoOn)
                co_await interruptibleSleep(1ms, stop);
        }};
    }

    std::atomic<int> m_waitCount = 0;
    std::atomic<bool> m_mayGoOn = false;
};

} // namespace

TEST_F(RipTurnsTest, LetsOtherCallsInWhileItWaits)
{
    m_files->onRead = [](const auto &reading) {
        if (reading.index == 0)
            failWith(EIO);
        return reading.bytes;
    };
    DiscRippingService service(m_temporary.path(), m_files, longWaits());
    bool isOver = false;
    const auto follow = [&]() -> QCoro::Task<> {
        co_await service.rip(trackOf(37632, 1), {}, {}, {});
        isOver = true;
    };
    auto waiting = follow();
    ASSERT_TRUE(test::eventually([this] { return m_waitCount == 1; }));
    EXPECT_EQ(test::readFile(await(service.rip(trackOf(37632, 2), {}, {}, {})).url.toLocalFile()),
              test::noise(37632));
    EXPECT_FALSE(await(service.verify(trackOf(37632, 2), {}, u"x"_s, {}, {})));
    await(service.prefix(trackOf(37632, 2), 0.01, {}));
    await(service.discardPrefixes({}));
    EXPECT_FALSE(isOver);
    m_mayGoOn = true;
    await(std::move(waiting));
    EXPECT_TRUE(isOver);
    EXPECT_EQ(rips().size(), 2);
}

TEST_F(RipTurnsTest, DropsTheWorkingSizeForOthersToo)
{
    m_files->onRead = [](const auto &reading) {
        if (reading.index == 0)
            failWith(EIO);
        return reading.bytes;
    };
    DiscRippingService service(m_temporary.path(), m_files, longWaits());
    auto waiting = service.rip(trackOf(18816 + 37632, 1), {}, {}, {});
    ASSERT_TRUE(test::eventually([this] { return m_waitCount == 1; }));
    await(service.rip(trackOf(2352, 2), {}, {}, {}));
    m_mayGoOn = true;
    await(std::move(waiting));
    await(service.rip(trackOf(2 * 2352, 3), {}, {}, {}));
    EXPECT_EQ(m_files->readSizes(), (QList<qint64>{37632, 2352, 18816, 37632, 2352, 2352}));
}

TEST_F(RipTurnsTest, LetsNobodyInWhileItReads)
{
    const auto gate = std::make_shared<Gate>();
    m_files->onRead = [gate](const auto &reading) {
        if (reading.index == 0)
            gate->pass();
        return reading.bytes;
    };
    DiscRippingService service(m_temporary.path(), m_files, noWaits());
    auto first = service.rip(trackOf(2 * 37632, 1), {}, {}, {});
    ASSERT_TRUE(test::eventually([&] { return gate->isReached(); }));
    auto second = service.rip(trackOf(37632, 2), {}, {}, {});
    auto third = service.rip(trackOf(37632, 3), {}, {}, {});
    gate->open();
    await(std::move(third));
    EXPECT_EQ(m_files->log(),
              (QStringList{u"open"_s, u"read 37632"_s, u"read 37632"_s, u"close"_s, u"open"_s,
                           u"read 37632"_s, u"close"_s, u"open"_s, u"read 37632"_s, u"close"_s}));
    await(std::move(first));
    await(std::move(second));
}

TEST_F(RipTurnsTest, ServesManyCallsOneAfterTheOther)
{
    DiscRippingService service(m_temporary.path(), m_files, noWaits());
    const DiscTrack track = trackOf(37632);
    std::vector<QCoro::Task<RippedTrack>> calls;
    for (int index = 0; index < 30; ++index)
        calls.push_back(service.rip(track, {}, {}, {}));
    for (auto &call : calls)
        await(std::move(call));
    EXPECT_EQ(rips().size(), 30);
}

} // namespace tonearm
