// SPDX-License-Identifier: GPL-3.0-or-later
// Edits, and what they amount to.
#include "tageditor/MetadataEditorModel.h"
#include "tageditor/PendingEdits.h"

#include <algorithm>
#include <utility>

namespace tonearm {

namespace {

constexpr qint64 bytesPerKilobyte = 1024;

} // namespace

void MetadataEditorModel::setValue(const QString &text, EditableTagField field)
{
    const QList<EditableAudioFile> rows = selectedFiles();
    if (rows.isEmpty())
        return;
    TagChangeSet edited = changes.value();
    for (const EditableAudioFile &row : rows)
        edited.fieldEdits[row.url].insert(field, text);
    changes = std::move(edited);
    completionMessage = std::nullopt;
}

qint64 MetadataEditorModel::artworkBudget() const
{
    return m_settings.artworkSizeBudgetKilobytes() * bytesPerKilobyte;
}

std::optional<ArtworkFingerprint> MetadataEditorModel::fingerprintOf(const QUrl &url) const
{
    const QHash<QUrl, ArtworkFingerprint> &known = artworkFingerprints.value();
    const auto found = known.constFind(url);
    return found == known.constEnd() ? std::nullopt : std::optional(*found);
}

bool MetadataEditorModel::isDirty(const EditableAudioFile &row) const
{
    const TagChangeSet &pending = changes.value();
    // What the fingerprint says matters for these only.
    const bool isShrinking = pending.optimizing.contains(row.url);
    return tonearm::isDirty(row, pending, isShrinking ? fingerprintOf(row.url) : std::nullopt,
                            artworkBudget());
}

bool MetadataEditorModel::hasPendingChanges() const
{
    const QList<EditableAudioFile> &rows = files.value();
    return std::any_of(rows.begin(), rows.end(),
                       [this](const EditableAudioFile &row) { return isDirty(row); });
}

bool MetadataEditorModel::canSave() const
{
    return hasPendingChanges() && !isSaving.value() && !isLoading.value() && !ffmpegProblem.value();
}

} // namespace tonearm
