// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEventLoop>

#include <functional>

namespace tonearm::bench {

/// Runs the event loop until something holds, and looks after each event: nothing is lost to a pause between
/// two looks.
inline void waitUntil(const std::function<bool()> &condition)
{
    QEventLoop loop;
    while (!condition())
        loop.processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace tonearm::bench
