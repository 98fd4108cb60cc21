// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/ChapterPreviewService.h"

#include "encoding/FFmpegArguments.h"
#include "support/Cancellation.h"

#include <QFile>
#include <QUuid>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

ChapterPreviewService::ChapterPreviewService(ToolLocation tools, QString base, ProcessRunner processRunner)
    : m_tools(std::move(tools))
    , m_processRunner(processRunner)
    , m_folders(std::move(base))
    , m_executor(u"previews"_s)
{
}

QCoro::Task<ChapterPreview> ChapterPreviewService::preview(ChapterInfo chapter, QUrl source, double limit,
                                                           std::stop_token stop)
{
    // What is awaited gets named closures only: GCC 12 destroys temporary ones twice.
    const auto making = [this, chapter, source, limit, stop] {
        return makePreview(chapter, source, limit, stop);
    };
    co_return co_await m_executor.run(making);
}

QCoro::Task<> ChapterPreviewService::clearCache()
{
    const auto clearing = [this]() -> QCoro::Task<> {
        removeFiles();
        co_return;
    };
    co_await m_executor.run(clearing);
}

ChapterPreviewService::CacheKey ChapterPreviewService::cacheKey(const ChapterInfo &chapter,
                                                                const QUrl &source)
{
    return {source.toLocalFile(), secondsText(chapter.startSeconds)};
}

QCoro::Task<ChapterPreview> ChapterPreviewService::makePreview(ChapterInfo chapter, QUrl source, double limit,
                                                               std::stop_token stop)
{
    throwIfCancelled(stop);
    const double duration = previewDuration(chapter, limit);
    const CacheKey key = cacheKey(chapter, source);
    if (const auto cached = m_cache.find(key);
        cached != m_cache.end() && QFile::exists(cached->second.toLocalFile()))
        co_return {chapter.id, cached->second, duration};

    const QString name = u"/preview-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces) + u".wav"_s;
    const QString output = m_folders.folder(TemporaryFolders::Purpose::previews) + name;
    const QStringList arguments = previewArguments(chapter, source, duration, output);
    co_await cut(arguments, output, stop);
    const QUrl url = QUrl::fromLocalFile(output);
    m_cache.insert_or_assign(key, url);
    co_return {chapter.id, url, duration};
}

QCoro::Task<> ChapterPreviewService::cut(QStringList arguments, QString output, std::stop_token stop)
{
    const QUrl ffmpeg = m_tools.toolURL(u"ffmpeg"_s);
    const ProcessRunner::LineCallback noCallback;
    try {
        co_await m_processRunner.run(ffmpeg, arguments, noCallback, stop);
    } catch (...) {
        QFile::remove(output);
        throw;
    }
}

void ChapterPreviewService::removeFiles()
{
    for (const auto &[key, url] : m_cache)
        QFile::remove(url.toLocalFile());
    m_cache.clear();
}

} // namespace tonearm
