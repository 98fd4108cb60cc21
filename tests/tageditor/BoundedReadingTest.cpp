// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/BoundedReading.h"
#include "helpers/Await.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoroFuture>
#include <QPromise>

#include <map>
#include <memory>

namespace tonearm {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// Reads that end when the test says.
class BoundedReads : public testing::Test
{
protected:
    void start(QList<int> items)
    {
        m_reading = {.read = [this](int item) { return read(item); },
                     .record =
                         [this](int item, int result, double fraction) {
                             EXPECT_EQ(result, item * 10);
                             m_recorded.push_back(item);
                             m_fractions.push_back(fraction);
                         }};
        m_task = follow(std::move(items));
    }

    QCoro::Task<> follow(QList<int> items)
    {
        co_await readBounded(std::move(items), m_reading, m_stop.get_token());
        m_hasEnded = true;
    }

    QCoro::Task<int> read(int item)
    {
        m_started.push_back(item);
        const auto promise = std::make_shared<QPromise<void>>();
        promise->start();
        m_open[item] = promise;
        QFuture<void> future = promise->future();
        co_await future;
        co_return item * 10;
    }

    // Ends a read, and waits until its end has been seen.
    void end(int item)
    {
        bool wasSeen = false;
        m_open.at(item)->future().then(&m_context, [&] { wasSeen = true; });
        m_open.at(item)->finish();
        m_open.erase(item);
        ASSERT_TRUE(test::eventually([&] { return wasSeen; }));
        QCoreApplication::processEvents();
    }

    QObject m_context;
    BoundedReading<int, int> m_reading;
    std::stop_source m_stop;
    std::vector<int> m_started;
    std::vector<int> m_recorded;
    std::vector<double> m_fractions;
    std::map<int, std::shared_ptr<QPromise<void>>> m_open;
    bool m_hasEnded = false;
    QCoro::Task<> m_task;
};

} // namespace

TEST_F(BoundedReads, StartInOrderWithFourAtATime)
{
    start({1, 2, 3, 4, 5, 6});
    EXPECT_THAT(m_started, ElementsAre(1, 2, 3, 4));
    end(3);
    EXPECT_THAT(m_started, ElementsAre(1, 2, 3, 4, 5));
    end(1);
    EXPECT_THAT(m_started, ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_FALSE(m_hasEnded);
    for (const int item : {2, 4, 5, 6})
        end(item);
    EXPECT_TRUE(m_hasEnded);
}

TEST_F(BoundedReads, AreRecordedAsTheyEnd)
{
    start({1, 2, 3, 4, 5});
    for (const int item : {4, 2, 5, 1, 3})
        end(item);
    EXPECT_THAT(m_recorded, ElementsAre(4, 2, 5, 1, 3));
    EXPECT_THAT(m_fractions, ElementsAre(0.2, 0.4, 0.6, 0.8, 1.0));
    EXPECT_TRUE(m_hasEnded);
}

TEST_F(BoundedReads, OfAShortListAllStartAtOnce)
{
    start({1, 2});
    EXPECT_THAT(m_started, ElementsAre(1, 2));
    end(2);
    end(1);
    EXPECT_TRUE(m_hasEnded);
}

TEST_F(BoundedReads, OfAnEmptyListEndAtOnce)
{
    start({});
    EXPECT_TRUE(m_hasEnded);
    EXPECT_THAT(m_recorded, IsEmpty());
}

TEST_F(BoundedReads, StopWithTheFirstResultAfterARequest)
{
    start({1, 2, 3, 4, 5, 6});
    end(2);
    m_stop.request_stop();
    end(4);
    EXPECT_THAT(m_started, ElementsAre(1, 2, 3, 4, 5));
    EXPECT_THAT(m_recorded, ElementsAre(2, 4));
    EXPECT_FALSE(m_hasEnded);
    for (const int item : {1, 3, 5})
        end(item);
    EXPECT_THAT(m_started, ElementsAre(1, 2, 3, 4, 5));
    EXPECT_THAT(m_recorded, ElementsAre(2, 4));
    EXPECT_TRUE(m_hasEnded);
}

} // namespace tonearm
