// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "encoding/ChapterExtractionError.h"
#include "encoding/SourceInspection.h"
#include "tools/ProcessRunner.h"
#include "tools/ToolLocation.h"

#include <QCoroTask>

#include <QUrl>

#include <stop_token>

namespace tonearm {

/// Finds out what the file that the user chose holds.
class ChapterExtractionService
{
public:
    explicit ChapterExtractionService(ToolLocation tools, ProcessRunner processRunner = {});

    /// Never returns an empty list of chapters. Only the name decides whether a file counts as Matroska.
    ///
    /// Throws ChapterExtractionError, FFmpegNotFoundError, what ProcessRunner::run throws, and
    /// CancellationError. The caller's thread needs an event loop and isn't blocked; the service may go
    /// while an inspection is under way.
    QCoro::Task<SourceInspection> inspect(QUrl url, std::stop_token stop) const;

private:
    ToolLocation m_tools;
    ProcessRunner m_processRunner;
};

} // namespace tonearm
