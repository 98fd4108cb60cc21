// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Background.h"

#include "helpers/Await.h"

#include <gtest/gtest.h>

#include <QScopeGuard>
#include <QSemaphore>
#include <QThreadPool>

namespace tonearm {

namespace {

// The pool belongs to all tests.
class BorrowedPool
{
public:
    BorrowedPool() = default;

    ~BorrowedPool() { QThreadPool::globalInstance()->setMaxThreadCount(m_threads); }

    BorrowedPool(const BorrowedPool &) = delete;
    BorrowedPool &operator=(const BorrowedPool &) = delete;

private:
    int m_threads = QThreadPool::globalInstance()->maxThreadCount();
};

} // namespace

TEST(Background, GoesOnBesideManyStepsThatHang)
{
    const BorrowedPool restored;
    QThreadPool &pool = *QThreadPool::globalInstance();
    pool.setMaxThreadCount(2);
    makeRoomInBackground();
    constexpr int hanging = backgroundThreads - 1;
    QSemaphore started;
    QSemaphore ends;
    const auto end = qScopeGuard([&] {
        ends.release(hanging);
        pool.waitForDone();
    });
    for (int step = 0; step < hanging; ++step)
        pool.start([&ends] { ends.acquire(); });
    const auto step = [&started] { started.release(); };
    const QCoro::Task<> stepping = inBackground(step);
    EXPECT_TRUE(test::eventually([&] { return started.available() == 1; }));
    EXPECT_TRUE(test::eventually([&] { return stepping.isReady(); }));
}

TEST(Background, TakesNoRoomAway)
{
    const BorrowedPool restored;
    QThreadPool &pool = *QThreadPool::globalInstance();
    pool.setMaxThreadCount(2 * backgroundThreads);
    makeRoomInBackground();
    EXPECT_EQ(pool.maxThreadCount(), 2 * backgroundThreads);
}

} // namespace tonearm
