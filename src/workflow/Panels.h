// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>

#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>
#include <stop_token>

namespace tonearm {

/// What an open panel is to offer.
struct OpenPanelRequest
{
    enum class Target { file, folder };

    QString title;
    /// The text of the button that accepts.
    QString prompt;
    Target target = Target::file;
    /// The only extensions on offer, in lower case and without their dots; files only.
    QStringList extensions = {};
    /// What the panel tells beside its title, where it has room for that.
    QString message = {};
    /// Where it starts; absent for wherever the last one ended.
    std::optional<QUrl> startFolder = {};
    /// Whether the user may make a folder in it.
    bool offersNewFolders = true;

    bool operator==(const OpenPanelRequest &) const = default;
};

/// The system's panels. Main thread.
class Panels
{
public:
    virtual ~Panels() = default;

    /// Shows a panel and suspends until it is answered: one existing location, or nothing if it was
    /// dismissed. A stop request dismisses it.
    virtual QCoro::Task<std::optional<QUrl>> choose(OpenPanelRequest request, std::stop_token stop) = 0;
};

} // namespace tonearm
