// SPDX-License-Identifier: GPL-3.0-or-later
// How a job of either kind goes: its preparation, its progress, its log, and its ends, finished, cancelled or
// failed.
#include "workflow/AppModel.h"

#include "support/Background.h"
#include "support/Cancellation.h"
#include "support/PathText.h"
#include "support/Text.h"
#include "workflow/EncodingJob.h"
#include "workflow/JobCoverArt.h"

#include <QDateTime>
#include <QMetaObject>

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

// A callback for other threads that has the main thread show how far the job is.
std::function<void(double)> AppModel::posted(std::function<void(double)> show)
{
    return [this, show = std::move(show)](double fraction) {
        const auto showUnlessOver = [this, show, fraction] {
            // What arrives after the job's end is dropped.
            if (encodingTask.value())
                show(fraction);
        };
        QMetaObject::invokeMethod(&m_context, showUnlessOver, Qt::QueuedConnection);
    };
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
        const auto writing = [log] { return writeEncodingLog(log, logDirectory(log)); };
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
