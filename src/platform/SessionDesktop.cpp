// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SessionDesktop.h"

#include <utility>

namespace tonearm {

SessionDesktop::SessionDesktop(LazyBus::Opening sessionBus, LazyBus::Opening systemBus,
                               std::chrono::milliseconds progressInterval)
    : m_session(std::move(sessionBus))
    , m_system(std::move(systemBus))
    , m_launcherEntry(m_session, progressInterval)
    , m_notifications(m_session)
{
}

SessionDesktop::~SessionDesktop()
{
    letSleep();
}

void SessionDesktop::showProgress(std::optional<double> fraction)
{
    m_launcherEntry.showProgress(fraction);
}

void SessionDesktop::keepAwake(const QString &reason)
{
    letSleep();
    m_inhibition = SleepInhibition::begin(m_session, m_system, reason);
}

void SessionDesktop::letSleep()
{
    if (const std::shared_ptr<SleepInhibition> inhibition = std::exchange(m_inhibition, nullptr))
        inhibition->release();
}

void SessionDesktop::notify(const WorkResult &result, std::function<void()> onClick)
{
    m_notifications.show(result.headline, result.detail, onClick);
}

} // namespace tonearm
