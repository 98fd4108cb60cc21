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

/// A tool is there but doesn't start.
class FFmpegNotRunnableError : public DescribedError
{
public:
    FFmpegNotRunnableError(QString tool, QString why);

    QString description() const override;
    std::optional<QString> recoverySuggestion() const override;

    /// The tool's name.
    QString executable;
    /// The failed run's own description.
    QString reason;

    bool operator==(const FFmpegNotRunnableError &other) const;
};

/// The pair ffmpeg and ffprobe, found and seen working.
struct FFmpegInstallation
{
    QUrl ffmpegURL;
    QUrl ffprobeURL;
    std::optional<QString> versionSummary;

    bool operator==(const FFmpegInstallation &) const = default;

    /// Finds both tools and starts each once. Throws FFmpegNotFoundError or FFmpegNotRunnableError, the
    /// latter for a cancellation too.
    static QCoro::Task<FFmpegInstallation> detect(ToolLocation tools, ProcessRunner processRunner,
                                                  std::stop_token stop);

    /// Version and folder, as the status banner shows them.
    QString displayLine() const;
};

} // namespace tonearm
