// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DescribedError.h"
#include "tools/ProcessRunner.h"
#include "tools/ToolLocation.h"

#include <QCoroTask>

#include <QString>
#include <QUrl>

#include <optional>
#include <stop_token>

namespace tonearm {

/// cd-paranoia isn't where it should be.
class CDParanoiaNotFoundError : public DescribedError
{
public:
    QString description() const override;
    std::optional<QString> recoverySuggestion() const override;

    bool operator==(const CDParanoiaNotFoundError &) const { return true; }
};

/// The program cd-paranoia, found.
struct CDParanoiaInstallation
{
    QUrl executableURL;
    std::optional<QString> versionSummary;

    bool operator==(const CDParanoiaInstallation &) const = default;

    /// Throws CDParanoiaNotFoundError.
    static QUrl locate(const ToolLocation &tools);

    /// Whether the program is there; doesn't start it.
    static bool isAvailable(const ToolLocation &tools);

    /// Asks the program its version; nothing if that fails in any way, a cancellation included.
    static QCoro::Task<std::optional<QString>>
    versionSummaryOf(QUrl executableURL, ProcessRunner processRunner, std::stop_token stop);
};

} // namespace tonearm
