// SPDX-License-Identifier: GPL-3.0-or-later
// A job's ends, finished, cancelled or failed, and the way there of a job on a file.
#include "workflow/AppModel.h"

#include "support/Background.h"
#include "support/Cancellation.h"
#include "support/PathText.h"
#include "support/Text.h"
#include "workflow/EncodingJob.h"
#include "workflow/JobCoverArt.h"

#include <QDateTime>
#include <QMetaObject>

#include <chrono>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

// The task's handle goes last, after the log is written: until then the model counts as busy.
QCoro::Task<> AppModel::runJob(std::shared_ptr<EncodingJob> job, std::stop_token stop)
{
    std::exception_ptr failure;
    bool wasCancelled = false;
    try {
        if (job->disc)
            co_await ripTracks(job, stop);
        else
            co_await encodeChapters(job, stop);
    } catch (const CancellationError &) {
        wasCancelled = true;
    } catch (...) {
        failure = std::current_exception();
    }
    co_await writeLog(job, failure, wasCancelled);
    if (wasCancelled)
        showCancelledJob(*job);
    else if (failure)
        showFailedJob(*job, failure);
    else
        completeJob(*job);
    encodingTask = std::nullopt;
    discard({});
}

QCoro::Task<std::shared_ptr<JobCoverArt>> AppModel::prepareJob(std::shared_ptr<EncodingJob> job)
{
    const auto cover = std::make_shared<JobCoverArt>(m_services.artworkFolder);
    const auto preparation = [encoder = m_services.encoder, job, cover] {
        encoder.validate(job->chapters, job->metadata);
        encoder.prepareOutputDirectory(job->destination);
        if (job->metadata.coverArtURL)
            job->metadata.coverArtURL = cover->withUsableName(*job->metadata.coverArtURL);
    };
    co_await inBackground(preparation);
    co_return cover;
}

QCoro::Task<> AppModel::encodeChapters(std::shared_ptr<EncodingJob> job, std::stop_token stop)
{
    using Clock = std::chrono::steady_clock;
    const AudioEncodingService encoder = m_services.encoder;
    const auto cover = co_await prepareJob(job);

    const qsizetype count = job->chapters.size();
    for (qsizetype index = 0; index < count; ++index) {
        throwIfCancelled(stop);
        const QString title = job->chapters[index].mappedTitle;
        publish(EncodingProgress::within(index, count, title, 0));

        const Clock::time_point start = Clock::now();
        const TrackEncoding track = trackOf(*job, index, encoder.outputFilename(title, index + 1));
        const ProgressReporter::Callback report = [this, index, count, title](double fraction) {
            const EncodingProgress progress = EncodingProgress::within(index, count, title, fraction);
            QMetaObject::invokeMethod(
                &m_context, [this, progress] { publish(progress); }, Qt::QueuedConnection);
        };
        co_await encoder.encode(track, report, stop);

        EncodingLog::Entry &entry = job->log.entries[index];
        entry.encodeDuration = Clock::now() - start;
        entry.outputFilename = track.output.fileName();
        job->outputs.append(track.output);
    }
    publish(EncodingProgress::within(count - 1, count, job->chapters.last().mappedTitle, 1));
}

void AppModel::publish(const EncodingProgress &progress)
{
    // What arrives after the job's end is dropped.
    if (!encodingTask.value())
        return;
    progressMessage = u"Encoding %1 of %2: %3"_s.arg(QString::number(progress.trackNumber),
                                                     QString::number(progress.totalTracks), progress.title);
    encodingProgress = progress.overallFraction;
}

QCoro::Task<> AppModel::writeLog(std::shared_ptr<EncodingJob> job, std::exception_ptr error,
                                 bool wasCancelled)
{
    EncodingLog log = job->log;
    log.finishedAt = QDateTime::currentDateTime();
    log.wasCancelled = wasCancelled;
    if (error)
        log.failure = describe(error).joined(u" "_s);
    try {
        const auto writing = [log] { return write(log, logDirectory(log)); };
        lastLogURL = co_await inBackground(writing);
    } catch (...) {
        // A job that went well isn't spoilt by a log that didn't.
        lastLogURL = std::nullopt;
    }
}

void AppModel::completeJob(const EncodingJob &job)
{
    encodedFiles = job.outputs;
    lastOutputFolder = job.destination;
    encodingProgress = 1;
    currentState = WorkflowState::Kind::complete;
    progressMessage = u"Encoded %1 to %2."_s.arg(counted(job.outputs.size(), u"track"_s),
                                                 lastPathComponent(job.destination));
    EncodingCompletion finished;
    finished.fileCount = job.outputs.size();
    completion = finished;
}

void AppModel::showCancelledJob(const EncodingJob &job)
{
    currentState = WorkflowState::Kind::idle;
    progressMessage = job.disc ? u"Ripping cancelled."_s : u"Encoding cancelled."_s;
    encodingProgress = 0;
}

void AppModel::showFailedJob(const EncodingJob &job, const std::exception_ptr &error)
{
    currentState = WorkflowState::error(describe(error).description);
    progressMessage = job.disc ? u"Ripping failed."_s : u"Encoding failed."_s;
    alert = AlertContent(job.disc ? u"Ripping Failed"_s : u"Encoding Failed"_s, error);
}

} // namespace tonearm
