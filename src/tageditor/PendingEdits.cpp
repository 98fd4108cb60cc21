// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/PendingEdits.h"

namespace tonearm {

namespace {

// Null if the row has none.
const FieldEdits *editsOf(const EditableAudioFile &row, const TagChangeSet &changes)
{
    const auto edits = changes.fieldEdits.constFind(row.url);
    return edits == changes.fieldEdits.constEnd() ? nullptr : &*edits;
}

std::optional<QString> editOf(const EditableAudioFile &row, EditableTagField field,
                              const TagChangeSet &changes)
{
    const FieldEdits *edits = editsOf(row, changes);
    if (!edits)
        return std::nullopt;
    const auto edit = edits->constFind(field);
    return edit == edits->constEnd() ? std::nullopt : std::optional(*edit);
}

bool holdsPicture(const EditableAudioFile &row, const TagChangeSet &changes)
{
    switch (artworkIntent(row, changes).kind) {
    case ArtworkIntent::Kind::replace:
        return true;
    case ArtworkIntent::Kind::remove:
        return false;
    case ArtworkIntent::Kind::untouched:
        return row.tags.hasAttachedPicture;
    }
    Q_UNREACHABLE();
}

} // namespace

QString pendingValue(const EditableAudioFile &row, EditableTagField field, const TagChangeSet &changes)
{
    return editOf(row, field, changes).value_or(row.tags.value(field));
}

QString tableText(const EditableAudioFile &row, EditableTagField field, const TagChangeSet &changes)
{
    const std::optional<QString> edit = editOf(row, field, changes);
    return edit ? normalForm(field, *edit) : row.tags.value(field);
}

AudioFileTags effectiveTags(const EditableAudioFile &row, const TagChangeSet &changes)
{
    AudioFileTags tags = row.tags;
    tags.trackPosition = tableText(row, EditableTagField::trackPosition, changes);
    tags.artist = tableText(row, EditableTagField::artist, changes);
    tags.album = tableText(row, EditableTagField::album, changes);
    tags.title = tableText(row, EditableTagField::title, changes);
    tags.year = tableText(row, EditableTagField::year, changes);
    tags.genre = tableText(row, EditableTagField::genre, changes);
    tags.discNumber = tableText(row, EditableTagField::discNumber, changes);
    tags.hasAttachedPicture = holdsPicture(row, changes);
    return tags;
}

ArtworkIntent artworkIntent(const EditableAudioFile &row, const TagChangeSet &changes)
{
    return changes.artworkIntents.value(row.url);
}

bool isOverBudget(const std::optional<ArtworkFingerprint> &fingerprint, qint64 budget)
{
    return fingerprint && fingerprint->byteCount > budget;
}

// A stored tag isn't brought into its normal form: "01" typed over "01" is a change to "1".
bool areTagsDirty(const AudioFileTags &tags, const FieldEdits &edits)
{
    for (auto edit = edits.constBegin(); edit != edits.constEnd(); ++edit)
        if (normalForm(edit.key(), *edit) != tags.value(edit.key()))
            return true;
    return false;
}

bool isArtworkDirty(const EditableAudioFile &row, const TagChangeSet &changes,
                    const std::optional<ArtworkFingerprint> &fingerprint, qint64 budget)
{
    switch (artworkIntent(row, changes).kind) {
    case ArtworkIntent::Kind::replace:
        return true;
    case ArtworkIntent::Kind::remove:
        return row.tags.hasAttachedPicture;
    case ArtworkIntent::Kind::untouched:
        return changes.optimizing.contains(row.url) && isOverBudget(fingerprint, budget);
    }
    Q_UNREACHABLE();
}

bool isDirty(const EditableAudioFile &row, const TagChangeSet &changes,
             const std::optional<ArtworkFingerprint> &fingerprint, qint64 budget)
{
    if (row.unreadableReason)
        return false;
    const FieldEdits *edits = editsOf(row, changes);
    return (edits && areTagsDirty(row.tags, *edits)) || isArtworkDirty(row, changes, fingerprint, budget);
}

} // namespace tonearm
