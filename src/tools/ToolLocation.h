// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DescribedError.h"

#include <QString>
#include <QUrl>

#include <optional>

namespace tonearm {

/// One of the programs that ship with the application isn't there.
class FFmpegNotFoundError : public DescribedError
{
public:
    explicit FFmpegNotFoundError(QString missingTool);

    QString description() const override;
    std::optional<QString> recoverySuggestion() const override;

    /// The tool's name.
    QString missing;

    bool operator==(const FFmpegNotFoundError &other) const { return missing == other.missing; }
};

/// Where the three audio tools lie: the folder "bin" in the application's resource folder, and nowhere
/// else. Nothing is cached; each call looks afresh.
class ToolLocation
{
public:
    /// `resourceFolder` is absent for an application that has lost its resources.
    explicit ToolLocation(std::optional<QString> resourceFolder);

    /// Throws FFmpegNotFoundError for "ffmpeg" without a resource folder.
    QString toolDirectory() const;

    /// Throws FFmpegNotFoundError if there is no executable file of that name.
    QUrl toolURL(const QString &named) const;

private:
    std::optional<QString> m_resourceFolder;
};

} // namespace tonearm
