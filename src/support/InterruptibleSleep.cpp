// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/InterruptibleSleep.h"

#include "support/Cancellation.h"

#include <QCoroFuture>

#include <QPromise>
#include <QTimer>

namespace tonearm {

QCoro::Task<> interruptibleSleep(std::chrono::milliseconds time, std::stop_token stop)
{
    throwIfCancelled(stop);
    QPromise<void> promise;
    promise.start();
    QFuture<void> over = promise.future();

    // The timer and a stop request both end the sleep; the second of them finds it ended.
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&promise] { promise.finish(); });
    timer.start(time);
    const std::stop_callback onStop(stop, [&promise] { promise.finish(); });
    co_await over;
    throwIfCancelled(stop);
}

} // namespace tonearm
