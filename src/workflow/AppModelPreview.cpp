// SPDX-License-Identifier: GPL-3.0-or-later
// Playing the start of a chapter.
#include "workflow/AppModel.h"

#include "encoding/AudioEncodingError.h"
#include "support/Cancellation.h"
#include "workflow/EncodingJob.h"

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

bool AppModel::canPreview() const
{
    return isFFmpegInstalled() && hasSource() && !encodingTask.value();
}

void AppModel::togglePreview(const ChapterInfo &chapter)
{
    if (!canPreview())
        return;
    const bool isPlaying = previewingChapterID.value() == chapter.id;
    stopPreview();
    if (isPlaying)
        return;
    preparingPreviewChapterID = chapter.id;
    previewTask = m_tasks.start([this, chapter](std::stop_token stop) { return runPreview(chapter, stop); });
}

// The handle goes without a look at whose it is: an earlier preview that ends late takes that of the one
// after it, which then can't be stopped until it plays. That is accepted: the later one ends by itself all
// the same, and stopPreview() silences it. With a look, the end of a preview would no longer mean that
// `previewTask` is absent.
QCoro::Task<> AppModel::runPreview(ChapterInfo chapter, std::stop_token stop)
{
    try {
        const QUrl source = co_await previewSource(chapter, stop);
        throwIfCancelled(stop);
        const ChapterPreview preview =
            co_await m_services.previewService.preview(chapter, source, previewSeconds, stop);
        throwIfCancelled(stop);
        play(preview);
    } catch (const CancellationError &) {
        // Whoever stopped it knows.
    } catch (...) {
        previewingChapterID = std::nullopt;
        alert = AlertContent(u"Couldn't Play Preview"_s, std::current_exception());
    }
    if (preparingPreviewChapterID.value() == chapter.id)
        preparingPreviewChapterID = std::nullopt;
    previewTask = std::nullopt;
}

QCoro::Task<QUrl> AppModel::startOf(DiscTrack track, std::stop_token stop)
{
    const double seconds = std::min(previewSeconds, DiscRippingService::longestPrefix(track));
    co_return co_await m_services.discRipper.prefix(track, seconds, stop);
}

QCoro::Task<QUrl> AppModel::previewSource(ChapterInfo chapter, std::stop_token stop)
{
    if (const std::optional<DiscInfo> disc = loadedDisc.value())
        co_return co_await startOf(trackOfChapter(*disc, chapter), stop);
    const std::optional<QUrl> file = inputFileURL.value();
    if (!file)
        throw AudioEncodingError::noChapters();
    co_return *file;
}

void AppModel::play(const ChapterPreview &preview)
{
    const qint64 id = preview.chapterID;
    m_services.previewPlayer.play(preview.url, [this, id] {
        if (previewingChapterID.value() == id)
            previewingChapterID = std::nullopt;
    });
    previewingChapterID = id;
}

void AppModel::stopPreview()
{
    if (const std::optional<TaskHandle> task = previewTask.value())
        task->cancel();
    previewTask = std::nullopt;
    m_services.previewPlayer.stop();
    previewingChapterID = std::nullopt;
    preparingPreviewChapterID = std::nullopt;
}

void AppModel::stopPreviewAndDiscard()
{
    stopPreview();
    m_tasks.start([this](std::stop_token) { return m_services.previewService.clearCache(); });
    m_tasks.start([this](std::stop_token stop) { return m_services.discRipper.discardPrefixes(stop); });
}

} // namespace tonearm
