// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LauncherEntry.h"
#include "platform/LazyBus.h"
#include "platform/Notifications.h"
#include "platform/SleepInhibition.h"
#include "workflow/Desktop.h"

#include <chrono>
#include <memory>

namespace tonearm {

/// The desktop of the user's session, spoken to over D-Bus: never waited for, and silent where a service is
/// missing. Lets go of all at its end.
class SessionDesktop : public Desktop
{
public:
    /// How to get at the two buses; called off the main thread when one is first needed. Progress is shown
    /// at most once in an interval.
    SessionDesktop(LazyBus::Opening sessionBus, LazyBus::Opening systemBus,
                   std::chrono::milliseconds progressInterval = std::chrono::milliseconds(250));
    ~SessionDesktop() override;
    SessionDesktop(const SessionDesktop &) = delete;
    SessionDesktop &operator=(const SessionDesktop &) = delete;

    void showProgress(std::optional<double> fraction) override;
    void keepAwake(const QString &reason) override;
    void letSleep() override;
    void notify(const WorkResult &result, std::function<void()> onClick) override;

private:
    LazyBus m_session;
    LazyBus m_system;
    LauncherEntry m_launcherEntry;
    Notifications m_notifications;
    std::shared_ptr<SleepInhibition> m_inhibition;
};

} // namespace tonearm
