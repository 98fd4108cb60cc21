// SPDX-License-Identifier: GPL-3.0-or-later
// A job on a file: its chapters are encoded one after the other.
#include "workflow/AppModel.h"

#include "support/Cancellation.h"
#include "workflow/EncodingJob.h"
#include "workflow/JobCoverArt.h"

#include <chrono>

namespace tonearm {

QCoro::Task<> AppModel::encodeChapters(std::shared_ptr<EncodingJob> job, std::stop_token stop)
{
    using Clock = std::chrono::steady_clock;
    const AudioEncodingService encoder = m_services.encoder;
    const auto cover = co_await prepareJob(job);

    const qsizetype count = job->chapters.size();
    for (qsizetype index = 0; index < count; ++index) {
        throwIfCancelled(stop);
        const QString title = job->chapters[index].mappedTitle;
        const auto show = [this, index, count, title](double fraction) {
            publish(EncodingProgress::within(index, count, title, fraction));
        };
        show(0);

        const Clock::time_point start = Clock::now();
        const TrackEncoding track = trackOf(*job, index, encoder.outputFilename(title, index + 1));
        const ProgressReporter::Callback onProgress = posted(show);
        co_await encoder.encode(track, onProgress, stop);

        EncodingLog::Entry &entry = job->log.entries[index];
        entry.encodeDuration = Clock::now() - start;
        entry.outputFilename = track.output.fileName();
        job->outputs.append(track.output);
    }
    publish(EncodingProgress::within(count - 1, count, job->chapters.last().mappedTitle, 1));
}

void AppModel::publish(const EncodingProgress &progress)
{
    progressMessage = progress.message();
    encodingProgress = progress.overallFraction;
}

} // namespace tonearm
