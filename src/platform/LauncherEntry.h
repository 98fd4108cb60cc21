// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LazyBus.h"

#include <QTimer>

#include <chrono>
#include <optional>

namespace tonearm {

/// The application's entry in the task bar or dock, which can show progress. It is told by a signal, which
/// docks take up or not. Main thread.
class LauncherEntry
{
public:
    /// `bus` is the session's and has to outlive it. News that comes faster than `interval` is held back.
    LauncherEntry(LazyBus &bus, std::chrono::milliseconds interval);

    /// Takes the progress away.
    ~LauncherEntry();

    LauncherEntry(const LauncherEntry &) = delete;
    LauncherEntry &operator=(const LauncherEntry &) = delete;

    /// From 0 to 1; absent, which is told at once, shows none.
    void showProgress(std::optional<double> fraction);

private:
    void send();

    LazyBus &m_bus;
    QTimer m_pause;
    std::optional<double> m_wanted;
    std::optional<double> m_sent;
};

} // namespace tonearm
