// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "encoding/ChapterPreview.h"
#include "support/SerialExecutor.h"
#include "support/TemporaryFolders.h"
#include "tools/ProcessRunner.h"
#include "tools/ToolLocation.h"

#include <QCoroTask>

#include <QString>
#include <QUrl>

#include <compare>
#include <map>
#include <stop_token>

namespace tonearm {

/// Cuts the start of chapters out of their source into temporary files, and keeps those for the next
/// time. Callable from any thread with an event loop; the service has to outlive its calls.
class ChapterPreviewService
{
public:
    /// `base` is the system's temporary directory, or a test's own.
    ChapterPreviewService(ToolLocation tools, QString base, ProcessRunner processRunner = {});

    /// The first `limit` seconds of a chapter, or all of one that is shorter. The file stays until
    /// clearCache.
    ///
    /// Throws FFmpegNotFoundError, what ProcessRunner::run throws, std::system_error if the folder can't
    /// be made, and CancellationError; none of them leaves a file.
    QCoro::Task<ChapterPreview> preview(ChapterInfo chapter, QUrl source, double limit, std::stop_token stop);

    /// Deletes the files of all previews, except of those being made. Never fails, and can't be cancelled:
    /// it is what an ending owner does last.
    QCoro::Task<> clearCache();

private:
    // Chapters that start at the same moment share a preview: it is cut to the same limit every time.
    struct CacheKey
    {
        QString sourcePath;
        // As it is told to ffmpeg.
        QString startTime;

        std::strong_ordering operator<=>(const CacheKey &) const = default;
    };

    static CacheKey cacheKey(const ChapterInfo &chapter, const QUrl &source);

    QCoro::Task<ChapterPreview> makePreview(ChapterInfo chapter, QUrl source, double limit,
                                            std::stop_token stop);
    QCoro::Task<> cut(QStringList arguments, QString output, std::stop_token stop);
    void removeFiles();

    // All of it is touched on the executor only.
    ToolLocation m_tools;
    ProcessRunner m_processRunner;
    TemporaryFolders m_folders;
    std::map<CacheKey, QUrl> m_cache;
    SerialExecutor m_executor;
};

} // namespace tonearm
