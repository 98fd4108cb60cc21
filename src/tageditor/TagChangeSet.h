// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/EditableTagField.h"

#include <QHash>
#include <QMap>
#include <QSet>
#include <QString>
#include <QUrl>

#include <utility>

namespace tonearm {

/// What the user wants to become of a file's picture.
struct ArtworkIntent
{
    enum class Kind { replace, untouched, remove };

    static ArtworkIntent replace(QUrl image) { return {Kind::replace, std::move(image)}; }

    static ArtworkIntent untouched() { return {}; }

    static ArtworkIntent remove() { return {Kind::remove, {}}; }

    Kind kind = Kind::untouched;
    /// The picture, for replace only.
    QUrl url = {};

    bool operator==(const ArtworkIntent &) const = default;
};

/// What the user typed for a file, as typed.
using FieldEdits = QMap<EditableTagField, QString>;

/// The edits that wait for a save, by file.
struct TagChangeSet
{
    QHash<QUrl, FieldEdits> fieldEdits;
    /// A file without an entry is untouched.
    QHash<QUrl, ArtworkIntent> artworkIntents;
    /// Files whose embedded picture is to be shrunk.
    QSet<QUrl> optimizing;

    bool operator==(const TagChangeSet &) const = default;
};

} // namespace tonearm
