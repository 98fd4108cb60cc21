// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/StallableThread.h"

#include <QCoroFuture>

#include <QPromise>
#include <QTimer>

#include <atomic>

namespace tonearm {

namespace {

// The end of a call, or of the patience with it.
struct Ending
{
    QPromise<void> promise;
    std::atomic<bool> hasReturned = false;
};

} // namespace

StallableThread::StallableThread(std::chrono::milliseconds grace)
    : m_grace(grace)
    , m_work(std::make_shared<Work>())
    , m_thread([work = m_work] { serve(work); })
{
}

StallableThread::~StallableThread()
{
    {
        const std::lock_guard lock(m_work->mutex);
        m_work->isClosing = true;
    }
    m_work->changed.notify_one();
    if (m_isLeftBehind)
        m_thread.detach();
    else
        m_thread.join();
}

void StallableThread::serve(const std::shared_ptr<Work> &work)
{
    for (;;) {
        std::function<void()> job;
        {
            std::unique_lock lock(work->mutex);
            work->changed.wait(lock, [&] { return work->next || work->isClosing; });
            if (!work->next)
                return;
            job = std::exchange(work->next, nullptr);
        }
        job();
    }
}

void StallableThread::post(std::function<void()> job)
{
    {
        const std::lock_guard lock(m_work->mutex);
        m_work->next = std::move(job);
    }
    m_work->changed.notify_one();
}

QCoro::Task<> StallableThread::finish(std::function<void()> job, std::stop_token stop)
{
    if (m_isLeftBehind)
        throw CancellationError{};
    const auto ending = std::make_shared<Ending>();
    ending->promise.start();
    const QFuture<void> ended = ending->promise.future();
    post([job = std::move(job), ending] {
        job();
        ending->hasReturned = true;
        ending->promise.finish();
    });

    QTimer grace;
    grace.setSingleShot(true);
    QObject::connect(&grace, &QTimer::timeout, &grace, [&] { ending->promise.finish(); });
    {
        // The request may come on any thread; timers are started on their own.
        const std::stop_callback onStop(
            stop, [&] { QMetaObject::invokeMethod(&grace, [&] { grace.start(m_grace); }); });
        co_await ended;
    }
    m_isLeftBehind = !ending->hasReturned;
    if (m_isLeftBehind)
        throw CancellationError{};
}

} // namespace tonearm
