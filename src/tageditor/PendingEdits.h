// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/ArtworkFingerprint.h"
#include "tageditor/EditableAudioFile.h"
#include "tageditor/TagChangeSet.h"

#include <QString>

#include <optional>

namespace tonearm {

// What the pending edits make of a row.

/// The text of a field as the user left it: the pending edit as it was typed, or else the stored tag.
QString pendingValue(const EditableAudioFile &row, EditableTagField field, const TagChangeSet &changes);

/// The same in the table: of a pending edit, what counts.
QString tableText(const EditableAudioFile &row, EditableTagField field, const TagChangeSet &changes);

/// The row's tags as a save would leave them.
AudioFileTags effectiveTags(const EditableAudioFile &row, const TagChangeSet &changes);

ArtworkIntent artworkIntent(const EditableAudioFile &row, const TagChangeSet &changes);

/// Whether a picture is larger than a budget in bytes; one that isn't known isn't.
bool isOverBudget(const std::optional<ArtworkFingerprint> &fingerprint, qint64 budget);

/// Whether a save would change a file's tags.
bool areTagsDirty(const AudioFileTags &tags, const FieldEdits &edits);

/// Whether a save would change the file's picture. `budget` and `fingerprint` are those of isDirty().
bool isArtworkDirty(const EditableAudioFile &row, const TagChangeSet &changes,
                    const std::optional<ArtworkFingerprint> &fingerprint, qint64 budget);

/// Whether a save would change the file. `budget`, in bytes, is the limit for pictures to be shrunk;
/// `fingerprint` is absent while it isn't known.
bool isDirty(const EditableAudioFile &row, const TagChangeSet &changes,
             const std::optional<ArtworkFingerprint> &fingerprint, qint64 budget);

} // namespace tonearm
