// SPDX-License-Identifier: GPL-3.0-or-later
// A job on a disc: each track is read, read again if that is wanted, and encoded, one stage at a time.
#include "workflow/AppModel.h"

#include "disc/DiscError.h"
#include "support/Background.h"
#include "support/Cancellation.h"
#include "workflow/EncodingJob.h"

#include <QFile>

#include <chrono>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

using Clock = std::chrono::steady_clock;

QString fallbackNote(const DiscTrack &track, const std::exception_ptr &failure)
{
    const QString reason = describe(failure).description;
    if (track.precedesDataSession)
        return u"Read through the filesystem instead of securely. "_s + reason;
    return u"Secure reading failed, so this track was read through the filesystem instead. "_s + reason;
}

} // namespace

QCoro::Task<> AppModel::ripTracks(std::shared_ptr<EncodingJob> job, std::stop_token stop)
{
    const auto cover = co_await prepareJob(job);
    for (qsizetype index = 0; index < job->chapters.size(); ++index) {
        throwIfCancelled(stop);
        co_await ripTrack(job, index, stop);
    }
    encodingProgress = 1;
}

QCoro::Task<> AppModel::ripTrack(std::shared_ptr<EncodingJob> job, qsizetype index, std::stop_token stop)
{
    const ChapterInfo chapter = job->chapters[index];
    DiscTrackJob work;
    work.job = job;
    work.index = index;
    work.track = trackOfChapter(*job->disc, chapter);
    work.reader = job->reader;
    work.entry.number = index + 1;
    work.entry.title = chapter.mappedTitle;
    co_await readTrack(&work, stop);
    if (job->isVerifying)
        co_await verifyTrack(&work, stop);
    else
        work.entry.verification = work.ripped.assurance;
    if (*work.entry.verification != RipVerification::unverified) {
        QMap<qint64, RipVerification> verifications = trackVerifications.value();
        verifications.insert(chapter.id, *work.entry.verification);
        trackVerifications = verifications;
    }
    co_await encodeRippedTrack(&work, stop);
}

// A secure reading that fails is made up for by an ordinary one, for this track alone.
QCoro::Task<> AppModel::readTrack(DiscTrackJob *work, std::stop_token stop)
{
    progressMessage = u"Reading track %1: %2"_s.arg(work->positionText(), work->entry.title);
    const Clock::time_point start = Clock::now();
    const TrackRipping::Progress onProgress = posted([this, progress = work->progress()](double fraction) {
        encodingProgress = progress.reading(fraction);
    });
    const DiscInfo disc = *work->job->disc;
    std::exception_ptr failure;
    try {
        work->ripped = co_await work->reader->rip(work->track, disc, onProgress, stop);
    } catch (const DiscError &) {
        if (!work->job->isSecure)
            throw;
        failure = std::current_exception();
    }
    if (failure) {
        throwIfCancelled(stop);
        progressMessage = u"Re-reading track %1 the ordinary way…"_s.arg(work->index + 1);
        work->reader = &m_services.discRipper;
        work->ripped = co_await work->reader->rip(work->track, disc, onProgress, stop);
        work->entry.error = fallbackNote(work->track, failure);
    }
    work->entry.readDuration = Clock::now() - start;
}

// Two readings that differ don't stop the job; the first goes on.
QCoro::Task<> AppModel::verifyTrack(DiscTrackJob *work, std::stop_token stop)
{
    throwIfCancelled(stop);
    progressMessage = u"Verifying track %1: %2"_s.arg(work->positionText(), work->entry.title);
    const Clock::time_point start = Clock::now();
    const TrackRipping::Progress onProgress = posted([this, progress = work->progress()](double fraction) {
        encodingProgress = progress.verifying(fraction);
    });
    const bool isSame =
        co_await work->reader->verify(work->track, *work->job->disc, work->ripped.checksum, onProgress, stop);
    work->entry.verifyDuration = Clock::now() - start;
    work->entry.verification =
        combined(isSame ? RipVerification::verified : RipVerification::mismatched, work->ripped.assurance);
}

QCoro::Task<> AppModel::encodeRippedTrack(DiscTrackJob *work, std::stop_token stop)
{
    EncodingJob &job = *work->job;
    EncodingLog::Entry &entry = work->entry;
    const qsizetype index = work->index;
    progressMessage = EncodingProgress::within(index, job.chapters.size(), entry.title, 0).message();
    const Clock::time_point start = Clock::now();
    TrackEncoding track = trackOf(job, index, m_services.encoder.outputFilename(entry.title, index + 1));
    track.source = work->ripped.url;
    track.wholeFile = true;
    const DiscJobProgress progress = work->progress();
    const ProgressReporter::Callback onProgress =
        posted([this, progress](double fraction) { encodingProgress = progress.encoding(fraction); });
    co_await m_services.encoder.encode(track, onProgress, stop);

    encodingProgress = progress.encoding(1);
    job.outputs.append(track.output);
    entry.encodeDuration = Clock::now() - start;
    entry.outputFilename = track.output.fileName();
    job.log.entries.append(entry);
    const auto removal = [ripped = track.source] { return QFile::remove(ripped.toLocalFile()); };
    co_await inBackground(removal);
}

} // namespace tonearm
