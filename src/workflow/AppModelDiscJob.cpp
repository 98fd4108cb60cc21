// SPDX-License-Identifier: GPL-3.0-or-later
// A job on a disc: each track is read, read again if that is wanted, and encoded, one stage at a time.
#include "workflow/AppModel.h"

#include "disc/DiscError.h"
#include "support/Background.h"
#include "support/Cancellation.h"
#include "workflow/DiscJobProgress.h"
#include "workflow/EncodingJob.h"

#include <QFile>
#include <QMetaObject>

#include <chrono>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

using Clock = std::chrono::steady_clock;

QString positionText(qsizetype index, qsizetype count)
{
    return u"%1 of %2"_s.arg(index + 1).arg(count);
}

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
    EncodingLog::Entry entry;
    entry.number = index + 1;
    entry.title = chapter.mappedTitle;
    DiscTrackReading reading{trackOfChapter(*job->disc, chapter), job->reader, {}};
    co_await readTrack(job, index, &reading, &entry, stop);
    if (job->isVerifying)
        co_await verifyTrack(job, index, &reading, &entry, stop);
    else
        entry.verification = reading.result.assurance;
    if (*entry.verification != RipVerification::unverified) {
        QMap<qint64, RipVerification> verifications = trackVerifications.value();
        verifications.insert(chapter.id, *entry.verification);
        trackVerifications = verifications;
    }
    co_await encodeRippedTrack(job, index, reading.result.url, &entry, stop);
}

// A secure reading that fails is made up for by an ordinary one, for this track alone.
QCoro::Task<> AppModel::readTrack(std::shared_ptr<EncodingJob> job, qsizetype index,
                                  DiscTrackReading *reading, EncodingLog::Entry *entry, std::stop_token stop)
{
    progressMessage = u"Reading track %1: %2"_s.arg(positionText(index, job->chapters.size()), entry->title);
    const Clock::time_point start = Clock::now();
    const DiscJobProgress progress(index, job->chapters.size(), job->isVerifying);
    const TrackRipping::Progress onProgress =
        posted([progress](double fraction) { return progress.reading(fraction); });
    std::exception_ptr failure;
    try {
        reading->result = co_await reading->reader->rip(reading->track, *job->disc, onProgress, stop);
    } catch (const DiscError &) {
        if (!job->isSecure)
            throw;
        failure = std::current_exception();
    }
    if (failure) {
        throwIfCancelled(stop);
        progressMessage = u"Re-reading track %1 the ordinary way…"_s.arg(index + 1);
        reading->reader = &m_services.discRipper;
        reading->result = co_await reading->reader->rip(reading->track, *job->disc, onProgress, stop);
        entry->error = fallbackNote(reading->track, failure);
    }
    entry->readDuration = Clock::now() - start;
}

// Two readings that differ don't stop the job; the first goes on.
QCoro::Task<> AppModel::verifyTrack(std::shared_ptr<EncodingJob> job, qsizetype index,
                                    DiscTrackReading *reading, EncodingLog::Entry *entry,
                                    std::stop_token stop)
{
    throwIfCancelled(stop);
    progressMessage =
        u"Verifying track %1: %2"_s.arg(positionText(index, job->chapters.size()), entry->title);
    const Clock::time_point start = Clock::now();
    const DiscJobProgress progress(index, job->chapters.size(), job->isVerifying);
    const TrackRipping::Progress onProgress =
        posted([progress](double fraction) { return progress.verifying(fraction); });
    const bool isSame = co_await reading->reader->verify(reading->track, *job->disc, reading->result.checksum,
                                                         onProgress, stop);
    entry->verifyDuration = Clock::now() - start;
    entry->verification =
        combined(isSame ? RipVerification::verified : RipVerification::mismatched, reading->result.assurance);
}

QCoro::Task<> AppModel::encodeRippedTrack(std::shared_ptr<EncodingJob> job, qsizetype index, QUrl ripped,
                                          EncodingLog::Entry *entry, std::stop_token stop)
{
    progressMessage = u"Encoding %1: %2"_s.arg(positionText(index, job->chapters.size()), entry->title);
    const Clock::time_point start = Clock::now();
    TrackEncoding track = trackOf(*job, index, m_services.encoder.outputFilename(entry->title, index + 1));
    track.source = ripped;
    track.wholeFile = true;
    const DiscJobProgress progress(index, job->chapters.size(), job->isVerifying);
    const ProgressReporter::Callback onProgress =
        posted([progress](double fraction) { return progress.encoding(fraction); });
    co_await m_services.encoder.encode(track, onProgress, stop);

    encodingProgress = progress.encoding(1);
    job->outputs.append(track.output);
    entry->encodeDuration = Clock::now() - start;
    entry->outputFilename = track.output.fileName();
    job->log.entries.append(*entry);
    const auto removal = [ripped] { return QFile::remove(ripped.toLocalFile()); };
    co_await inBackground(removal);
}

// A callback for other threads that has the main thread show how far the job is.
std::function<void(double)> AppModel::posted(std::function<double(double)> overallFraction)
{
    return [this, overallFraction = std::move(overallFraction)](double fraction) {
        const double overall = overallFraction(fraction);
        const auto show = [this, overall] {
            // What arrives after the job's end is dropped.
            if (encodingTask.value())
                encodingProgress = overall;
        };
        QMetaObject::invokeMethod(&m_context, show, Qt::QueuedConnection);
    };
}

} // namespace tonearm
