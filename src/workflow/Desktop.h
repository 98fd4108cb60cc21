// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace tonearm {

/// What came of a long piece of work, in the words of its model.
struct WorkResult
{
    QString headline;
    /// More about it; often empty.
    QString detail;

    bool operator==(const WorkResult &) const = default;
};

/// What the desktop does for work that goes on while the user is elsewhere. Every call returns at once, and
/// nobody is told where the desktop can't do it. Main thread.
class Desktop
{
public:
    virtual ~Desktop() = default;

    /// How far the work is, from 0 to 1, beside the application's name; absent when nothing runs. May be
    /// called as often as there is news.
    virtual void showProgress(std::optional<double> fraction) = 0;

    /// The machine isn't to fall asleep by itself, for a reason that people can read, until letSleep().
    virtual void keepAwake(const QString &reason) = 0;
    virtual void letSleep() = 0;

    /// Tells the user of a result. `onClick` is called if the user asks to see more, maybe much later, or
    /// never.
    virtual void notify(const WorkResult &result, std::function<void()> onClick) = 0;
};

} // namespace tonearm
