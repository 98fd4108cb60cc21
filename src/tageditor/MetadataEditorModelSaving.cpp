// SPDX-License-Identifier: GPL-3.0-or-later
// The save: which files, in which order, and what is told of it.
#include "artwork/CoverArtPreparation.h"
#include "support/Background.h"
#include "support/Cancellation.h"
#include "support/PathText.h"
#include "tageditor/MetadataEditorModel.h"
#include "tageditor/PendingEdits.h"

#include <QScopeGuard>

#include <algorithm>
#include <iterator>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

struct MetadataEditorModel::SaveOutcome
{
    QSet<QUrl> saved;
    QList<SaveFailure> failures;
    QList<RefusedSave> dropped;
    bool wasCancelled = false;
};

namespace {

SaveFailure failureOf(const EditableAudioFile &row, const std::exception_ptr &error)
{
    SaveFailure failure;
    failure.fileName = lastPathComponent(row.url);
    failure.reason = describe(error).description;
    failure.reason.replace(u'\n', u' ');
    return failure;
}

RefusedSave refusalOf(const EditableAudioFile &row, const QStringList &tags)
{
    RefusedSave refusal;
    refusal.fileID = row.url;
    refusal.fileName = lastPathComponent(row.url);
    refusal.tags = tags;
    return refusal;
}

std::optional<AlertContent> alertOf(const QList<SaveFailure> &failures)
{
    if (failures.isEmpty())
        return std::nullopt;
    QStringList lines;
    for (const SaveFailure &failure : failures)
        lines.append(failure.fileName + u" — "_s + failure.reason);
    return AlertContent(failures.size() == 1 ? u"One File Couldn't Be Saved"_s
                                             : u"Some Files Couldn't Be Saved"_s,
                        lines.join(u'\n'));
}

QList<EditableAudioFile> without(QList<EditableAudioFile> rows, const QList<RefusedSave> &refused)
{
    QSet<QUrl> left;
    for (const RefusedSave &refusal : refused)
        left.insert(refusal.fileID);
    rows.removeIf([&left](const EditableAudioFile &row) { return left.contains(row.url); });
    return rows;
}

} // namespace

void MetadataEditorModel::save()
{
    if (!canSave())
        return;
    const QList<EditableAudioFile> &rows = files.value();
    QList<EditableAudioFile> targets;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(targets),
                 [this](const EditableAudioFile &row) { return isDirty(row); });
    startSave(targets, dropsUnwritableTags.value() ? SaveMode::droppingTags : SaveMode::checkingFirst);
}

void MetadataEditorModel::saveAnyway()
{
    const QList<EditableAudioFile> targets = pendingSaveTargets.value();
    pendingSaveTargets = QList<EditableAudioFile>();
    refusedSaves = QList<RefusedSave>();
    if (!targets.isEmpty())
        startSave(targets, SaveMode::droppingTags);
}

void MetadataEditorModel::leaveRefusedUnchanged()
{
    const QList<EditableAudioFile> targets = without(pendingSaveTargets.value(), refusedSaves.value());
    pendingSaveTargets = QList<EditableAudioFile>();
    refusedSaves = QList<RefusedSave>();
    if (!targets.isEmpty())
        startSave(targets, SaveMode::keepingTags);
}

void MetadataEditorModel::stopSaving()
{
    cancel(m_saveTask);
}

QString MetadataEditorModel::refusalMessage() const
{
    return tonearm::refusalMessage(refusedSaves.value());
}

std::optional<QString> MetadataEditorModel::droppedTagSummary() const
{
    return tonearm::droppedTagSummary(droppedTagReports.value());
}

void MetadataEditorModel::startSave(const QList<EditableAudioFile> &targets, SaveMode mode)
{
    // At once, so that no second save can begin before the task does.
    isSaving = true;
    m_saveTask = m_tasks.start([this, targets, mode](std::stop_token stop) {
        return mode == SaveMode::checkingFirst ? checkAndWrite(targets, stop) : writeAll(targets, mode, stop);
    });
}

void MetadataEditorModel::showSaveStep(const QString &verb, qsizetype index,
                                       const QList<EditableAudioFile> &targets)
{
    saveStatus = u"%1 %2 of %3: %4"_s.arg(verb, QString::number(index + 1), QString::number(targets.size()),
                                          lastPathComponent(targets.at(index).url));
    saveProgress = double(index) / double(targets.size());
}

void MetadataEditorModel::endSaveStep()
{
    isSaving = false;
    saveProgress = 0;
    saveStatus = std::nullopt;
}

QCoro::Task<> MetadataEditorModel::checkAndWrite(QList<EditableAudioFile> targets, std::stop_token stop)
{
    const QList<RefusedSave> refused = co_await refusedBy(targets, stop);
    endSaveStep();
    throwIfCancelled(stop);
    if (!refused.isEmpty()) {
        pendingSaveTargets = targets;
        refusedSaves = refused;
        co_return;
    }
    co_await writeAll(targets, SaveMode::keepingTags, stop);
}

// The files that would lose tags. One whose check fails isn't among them: the write will tell why.
QCoro::Task<QList<RefusedSave>> MetadataEditorModel::refusedBy(QList<EditableAudioFile> targets,
                                                               std::stop_token stop)
{
    QList<RefusedSave> refused;
    for (qsizetype index = 0; index < targets.size() && !stop.stop_requested(); ++index) {
        showSaveStep(u"Checking"_s, index, targets);
        const EditableAudioFile row = targets.at(index);
        try {
            const TagWrite plan = m_services.tagService.tagWrite(row, changes.value());
            const QStringList lost = co_await m_services.tagService.preflight(row, plan, stop);
            if (!lost.isEmpty())
                refused.append(refusalOf(row, lost));
        } catch (...) { // NOLINT(bugprone-empty-catch): see above
        }
    }
    co_return refused;
}

QCoro::Task<> MetadataEditorModel::writeAll(QList<EditableAudioFile> targets, SaveMode mode,
                                            std::stop_token stop)
{
    const std::stop_token folder = m_folder.get_token();
    isSaving = true;
    saveProgress = 0;
    saveFailures = QList<SaveFailure>();
    droppedTagReports = QList<RefusedSave>();
    completionMessage = std::nullopt;
    SaveOutcome outcome;
    co_await writeEach(targets, mode, &outcome, stop);
    outcome.wasCancelled = stop.stop_requested();
    if (!folder.stop_requested() && !outcome.saved.isEmpty())
        co_await takeUpSaved(outcome.saved, folder);
    if (!folder.stop_requested())
        showOutcome(outcome);
    endSaveStep();
}

QCoro::Task<> MetadataEditorModel::writeEach(QList<EditableAudioFile> targets, SaveMode mode,
                                             SaveOutcome *outcome, std::stop_token stop)
{
    for (qsizetype index = 0; index < targets.size() && !stop.stop_requested(); ++index) {
        showSaveStep(u"Saving"_s, index, targets);
        const EditableAudioFile row = targets.at(index);
        try {
            const QStringList dropped = co_await writeOne(row, mode, stop);
            outcome->saved.insert(row.url);
            if (!dropped.isEmpty())
                outcome->dropped.append(refusalOf(row, dropped));
        } catch (const CancellationError &) {
            co_return;
        } catch (...) {
            outcome->failures.append(failureOf(row, std::current_exception()));
        }
    }
}

// Returns the names of the tags that the file has lost.
QCoro::Task<QStringList> MetadataEditorModel::writeOne(EditableAudioFile row, SaveMode mode,
                                                       std::stop_token stop)
{
    const TagChangeSet pending = changes.value();
    TagWrite plan = m_services.tagService.tagWrite(row, pending);
    const bool isShrinking =
        plan.artwork == ArtworkWrite::keep() && pending.optimizing.contains(row.url) && isOverBudget(row);
    std::optional<PreparedCoverArt> shrunk;
    if (isShrinking) {
        const auto preparation = [url = fingerprintOf(row.url)->extractedURL, budget = artworkBudget(),
                                  folder = m_services.artworkFolder] {
            return CoverArtPreparation(folder).prepare(url, budget);
        };
        const PreparedCoverArt prepared = co_await inBackground(preparation);
        shrunk = prepared;
        plan.artwork = ArtworkWrite::replace(prepared.url);
    }
    if (plan.isEmpty())
        co_return {};
    const auto atEnd = qScopeGuard([this, &shrunk] {
        if (shrunk && shrunk->url != shrunk->originalURL)
            m_services.artworkFolder->discard(shrunk->url);
    });
    const QStringList lost =
        co_await m_services.tagService.write(row, plan, mode == SaveMode::droppingTags, stop);
    co_return lost;
}

// Takes what has been written off the pending edits, and reads the folder again.
QCoro::Task<> MetadataEditorModel::takeUpSaved(QSet<QUrl> saved, std::stop_token folder)
{
    TagChangeSet remaining = changes.value();
    for (const QUrl &url : std::as_const(saved)) {
        remaining.fieldEdits.remove(url);
        remaining.artworkIntents.remove(url);
        remaining.optimizing.remove(url);
    }
    changes = remaining;
    emptyArtworkCache();
    if (remaining == TagChangeSet())
        dropChosenArtwork();
    QList<QUrl> urls;
    for (const EditableAudioFile &row : files.value())
        urls.append(row.url);
    const ReadRows read = co_await readRows(urls, folder);
    if (folder.stop_requested())
        co_return;
    files = read.rows;
    readArtwork();
}

void MetadataEditorModel::showOutcome(const SaveOutcome &outcome)
{
    saveFailures = outcome.failures;
    droppedTagReports = outcome.dropped;
    wasSaveCancelled = outcome.wasCancelled;
    completionMessage = completionLine({.saved = outcome.saved.size(),
                                        .failed = outcome.failures.size(),
                                        .heldBack = dirtyCount(),
                                        .dropped = outcome.dropped.size(),
                                        .wasCancelled = outcome.wasCancelled});
    alert = alertOf(outcome.failures);
}

} // namespace tonearm
