// SPDX-License-Identifier: GPL-3.0-or-later
// How a job starts: the question about files that it would overwrite, and its log's beginning.
#include "workflow/AppModel.h"

#include "support/Background.h"
#include "support/Cancellation.h"
#include "support/PathText.h"
#include "workflow/EncodingJob.h"

#include <QCoroFuture>

#include <QDateTime>
#include <QScopeGuard>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QStringList namesOf(const QList<QUrl> &files)
{
    QStringList names;
    for (const QUrl &file : files)
        names.append(file.fileName());
    return names;
}

// One entry for each chapter; a job fills in what becomes of it.
QList<EncodingLog::Entry> entriesFor(const QList<ChapterInfo> &chapters)
{
    QList<EncodingLog::Entry> entries;
    for (const ChapterInfo &chapter : chapters) {
        EncodingLog::Entry entry;
        entry.number = entries.size() + 1;
        entry.title = chapter.mappedTitle;
        entry.startSeconds = chapter.startSeconds;
        entry.endSeconds = chapter.endSeconds;
        entries.append(entry);
    }
    return entries;
}

} // namespace

void AppModel::startEncoding()
{
    lookForOverwrites({});
}

// `agreed` are the units whose files the user has agreed to overwrite.
void AppModel::lookForOverwrites(const QList<ChapterInfo> &agreed)
{
    const std::optional<QUrl> destination = destinationFolder();
    if (!canEncode() || !destination || m_isLookingForOverwrites)
        return;
    m_isLookingForOverwrites = true;
    m_tasks.start([this, folder = *destination, agreed](std::stop_token stop) {
        return checkForOverwrites(folder, agreed, stop);
    });
}

// The look at the folder may take its time on a disk across the network, so the user can act meanwhile:
// what was true before is asked again after, titles that were edited are looked up again, and a cover chosen
// meanwhile is waited for.
QCoro::Task<> AppModel::checkForOverwrites(QUrl destination, QList<ChapterInfo> agreed, std::stop_token stop)
{
    const auto over = qScopeGuard([this] { m_isLookingForOverwrites = false; });
    const std::optional<QUrl> source = inputFileURL.value();
    const std::optional<DiscInfo> disc = loadedDisc.value();
    QList<ChapterInfo> units;
    QList<QUrl> existing;
    do {
        co_await untilCoverArtIsReady(stop);
        units = chapters.value();
        const auto look = [encoder = m_services.encoder, units, destination] {
            return encoder.existingOutputs(units, destination);
        };
        existing = co_await inBackground(look);
        throwIfCancelled(stop);
        if (!canStartIn(destination) || inputFileURL.value() != source || loadedDisc.value() != disc)
            co_return;
    } while (chapters.value() != units || isPreparingCoverArt.value());
    if (existing.isEmpty() || units == agreed) {
        beginJob();
        co_return;
    }
    PendingOverwrite question;
    question.folder = destination;
    question.filenames = namesOf(existing);
    m_unitsInQuestion = units;
    pendingOverwrite = question;
}

// What the user has chosen is embedded, however quickly the job is started after it.
QCoro::Task<> AppModel::untilCoverArtIsReady(std::stop_token stop)
{
    while (isPreparingCoverArt.value()) {
        const QFuture<void> preparation = m_coverArtPreparation->future();
        co_await preparation;
        throwIfCancelled(stop);
    }
}

void AppModel::confirmOverwrite()
{
    const std::optional<PendingOverwrite> question = pendingOverwrite.value();
    if (!question)
        return;
    pendingOverwrite = std::nullopt;
    if (!canStartIn(question->folder))
        return;
    // Titles that have changed behind the question may lead to files that it didn't name.
    if (chapters.value() == m_unitsInQuestion && !isPreparingCoverArt.value())
        beginJob();
    else
        lookForOverwrites(m_unitsInQuestion);
}

bool AppModel::canStartIn(const QUrl &folder) const
{
    const std::optional<QUrl> destination = destinationFolder();
    return canEncode() && destination && destination->path() == folder.path();
}

void AppModel::beginJob()
{
    stopPreview();
    const auto job = std::make_shared<EncodingJob>();
    job->disc = loadedDisc.value();
    job->source = inputFileURL.value().value_or(QUrl());
    job->chapters = chapters.value();
    job->metadata = currentMetadata();
    job->destination = *destinationFolder();
    job->log = newLog(job->destination, job->metadata);
    if (job->disc)
        prepareDiscJob(*job);
    else
        job->log.entries = entriesFor(job->chapters);

    currentState = WorkflowState::Kind::encoding;
    encodingProgress = 0;
    encodedFiles = QList<QUrl>();
    progressMessage = u"Starting…"_s;
    encodingTask = m_tasks.start([this, job](std::stop_token stop) { return runJob(job, stop); });
}

void AppModel::prepareDiscJob(EncodingJob &job)
{
    trackVerifications = QMap<qint64, RipVerification>();
    job.isSecure = usesSecureRipping();
    job.isVerifying = m_settings.verifyRipsByRereading();
    job.reader = &m_services.discRipper;
    if (job.isSecure)
        job.reader = &m_services.secureRipper;
    job.log.source =
        EncodingLog::DiscSource{plainPath(job.disc->volumeURL), job.disc->discID, job.disc->tracks.size()};
    if (const std::optional<CDParanoiaInstallation> paranoia = cdParanoiaInstallation.value())
        job.log.cdParanoiaVersion = paranoia->versionSummary;
    job.log.reader = job.reader->readerName();
}

EncodingLog AppModel::newLog(const QUrl &destination, const AudioMetadata &metadata) const
{
    EncodingLog log;
    log.appVersion = m_services.appVersion;
    log.startedAt = QDateTime::currentDateTime();
    log.source = EncodingLog::FileSource{inputFileURL.value().value_or(QUrl())};
    log.outputFolder = outputFolderURL.value();
    log.destinationFolder = destination;
    log.artist = metadata.artist;
    log.album = metadata.album;
    log.year = metadata.year;
    log.genre = metadata.genre;
    log.discNumber = metadata.discNumber;
    log.discTotal = metadata.discTotal;
    log.coverArt = coverArtLine();
    const FFmpegStatus status = ffmpegStatus.value();
    if (const auto *installation = std::get_if<FFmpegInstallation>(&status))
        log.ffmpegVersion = installation->versionSummary;
    log.sourceAudio = sourceAudio.value();
    log.verificationEnabled = m_settings.verifyRipsByRereading();
    return log;
}

std::optional<QString> AppModel::coverArtLine() const
{
    const std::optional<PreparedCoverArt> art = coverArt.value();
    if (!art)
        return std::nullopt;
    const QString name = lastPathComponent(art->url);
    const std::optional<QString> origin = coverArtOrigin.value();
    return origin ? QString(*origin + u" — "_s + name) : name;
}

void AppModel::cancelEncoding()
{
    if (const std::optional<TaskHandle> task = encodingTask.value())
        task->cancel();
}

} // namespace tonearm
