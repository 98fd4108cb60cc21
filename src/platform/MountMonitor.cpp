// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MountMonitor.h"

#include <libmount.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace tonearm {

namespace {

// libmount returns the error's number, negative.
int checked(int result)
{
    if (result < 0)
        throw std::system_error(-result, std::generic_category());
    return result;
}

} // namespace

MountMonitor::MountMonitor(std::function<void()> onChange)
    : m_monitor(mnt_new_monitor())
{
    if (!m_monitor)
        throw std::system_error(ENOMEM, std::generic_category());
    checked(mnt_monitor_enable_kernel(m_monitor.get(), 1));
    const int descriptor = checked(mnt_monitor_get_fd(m_monitor.get()));
    m_notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this, onChange = std::move(onChange)] {
                         mnt_monitor_event_cleanup(m_monitor.get());
                         onChange();
                     });
}

void MountMonitor::Release::operator()(libmnt_monitor *monitor) const
{
    mnt_unref_monitor(monitor);
}

} // namespace tonearm
