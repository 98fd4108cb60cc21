// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/LongWork.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace tonearm::test {

/// Remembers what it was told.
class FakeDesktop : public Desktop
{
public:
    void showProgress(std::optional<double> fraction) override { m_progress.append(fraction); }

    void keepAwake(const QString &reason) override
    {
        m_reasons.append(reason);
        m_isAwake = true;
    }

    void letSleep() override { m_isAwake = false; }

    void notify(const WorkResult &result, std::function<void()> onClick) override
    {
        m_results.append(result);
        m_onClick = std::move(onClick);
    }

    /// All that was shown, in order.
    const QList<std::optional<double>> &progress() const { return m_progress; }

    /// One for each time that the machine was to be kept awake.
    const QList<QString> &reasons() const { return m_reasons; }

    bool isAwake() const { return m_isAwake; }

    const QList<WorkResult> &results() const { return m_results; }

    /// Clicks the latest notification.
    void click() { m_onClick(); }

private:
    QList<std::optional<double>> m_progress;
    QList<QString> m_reasons;
    bool m_isAwake = false;
    QList<WorkResult> m_results;
    std::function<void()> m_onClick;
};

/// A window that is where the test says, in the background at first.
class FakeWorkWindow
{
public:
    WorkWindow window()
    {
        return {.isInFront = [this] { return isInFront; }, .bringToFront = [this] { isInFront = true; }};
    }

    bool isInFront = false;
};

} // namespace tonearm::test
