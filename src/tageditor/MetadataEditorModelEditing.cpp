// SPDX-License-Identifier: GPL-3.0-or-later
// Edits, and what they amount to.
#include "tageditor/MetadataEditorModel.h"
#include "tageditor/PendingEdits.h"

#include <algorithm>
#include <utility>

namespace tonearm {

namespace {

using Fingerprints = QHash<QUrl, ArtworkFingerprint>;

std::optional<ArtworkFingerprint> fingerprintIn(const Fingerprints &known, const QUrl &url)
{
    const auto found = known.constFind(url);
    return found == known.constEnd() ? std::nullopt : std::optional(*found);
}

bool isDirtyWith(const EditableAudioFile &row, const TagChangeSet &pending, const Fingerprints &known,
                 qint64 budget)
{
    // What the fingerprint says matters for these only.
    const bool isShrinking = pending.optimizing.contains(row.url);
    return isDirty(row, pending, isShrinking ? fingerprintIn(known, row.url) : std::nullopt, budget);
}

qsizetype countDirty(const QList<EditableAudioFile> &rows, const QList<FieldEdits> &edits,
                     const TagChangeSet &pending, const Fingerprints &known, qint64 budget)
{
    const bool hasArtwork = !pending.artworkIntents.isEmpty() || !pending.optimizing.isEmpty();
    qsizetype count = 0;
    for (qsizetype row = 0; row < rows.size(); ++row)
        if (hasArtwork ? isDirtyWith(rows[row], pending, known, budget)
                       : !rows[row].unreadableReason && areTagsDirty(rows[row].tags, edits[row]))
            ++count;
    return count;
}

} // namespace

void MetadataEditorModel::setValue(const QString &text, EditableTagField field)
{
    const QList<EditableAudioFile> &rows = files.value();
    const QList<qsizetype> places = selectedPlaces();
    if (places.isEmpty())
        return;
    RowEdits edits = rowEdits();
    TagChangeSet edited = changes.value();
    edited.fieldEdits.reserve(std::max(edited.fieldEdits.size(), places.size()));
    // Rows that were edited together share their edits, and go on sharing them.
    FieldEdits before;
    FieldEdits after{{field, text}};
    for (const qsizetype place : places) {
        if (edits[place] != before) {
            before = edits[place];
            after = before;
            after.insert(field, text);
        }
        edits[place] = after;
        edited.fieldEdits.insert(rows[place].url, after);
    }
    m_rowEdits.put(edits, rows, edited.fieldEdits);
    changes = std::move(edited);
    completionMessage = std::nullopt;
}

qint64 MetadataEditorModel::artworkBudget() const
{
    return m_settings.artworkByteBudget();
}

std::optional<ArtworkFingerprint> MetadataEditorModel::fingerprintOf(const QUrl &url) const
{
    return fingerprintIn(artworkFingerprints.value(), url);
}

bool MetadataEditorModel::isDirty(const EditableAudioFile &row) const
{
    return isDirtyWith(row, changes.value(), artworkFingerprints.value(), artworkBudget());
}

qsizetype MetadataEditorModel::dirtyCount() const
{
    return m_dirtyCount.from(files.value(), rowEdits(), changes.value(), artworkFingerprints.value(),
                             artworkBudget(), countDirty);
}

bool MetadataEditorModel::hasPendingChanges() const
{
    return isPreparingArtwork.value() || dirtyCount() > 0;
}

bool MetadataEditorModel::canSave() const
{
    return dirtyCount() > 0 && !isPreparingArtwork.value() && !isSaving.value() && !isLoading.value() &&
           !ffmpegProblem.value();
}

} // namespace tonearm
