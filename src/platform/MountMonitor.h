// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

struct libmnt_monitor;

namespace tonearm {

/// Tells that volumes may have been mounted or unmounted.
class MountMonitor
{
public:
    /// `onChange` is called from this thread's event loop after each change of the kernel's mount table;
    /// several changes in a row may come as one call. Throws std::system_error.
    explicit MountMonitor(std::function<void()> onChange);
    MountMonitor(const MountMonitor &) = delete;
    MountMonitor &operator=(const MountMonitor &) = delete;

private:
    struct Release
    {
        void operator()(libmnt_monitor *monitor) const;
    };

    std::unique_ptr<libmnt_monitor, Release> m_monitor;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace tonearm
