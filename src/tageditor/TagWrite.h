// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/EditableAudioFile.h"
#include "tageditor/TagChangeSet.h"

#include <QStringList>
#include <QUrl>

#include <utility>

namespace tonearm {

/// What a rewrite does with the picture.
struct ArtworkWrite
{
    enum class Kind { replace, keep, remove };

    static ArtworkWrite replace(QUrl image) { return {Kind::replace, std::move(image)}; }

    static ArtworkWrite keep() { return {}; }

    static ArtworkWrite remove() { return {Kind::remove, {}}; }

    Kind kind = Kind::keep;
    /// The picture, for replace only.
    QUrl url = {};

    bool operator==(const ArtworkWrite &) const = default;
};

/// The plan for one file.
struct TagWrite
{
    /// Arguments for ffmpeg in pairs: "-metadata", "<key>=<value>".
    QStringList metadata;
    ArtworkWrite artwork;

    /// Whether a rewrite would change nothing.
    bool isEmpty() const { return metadata.isEmpty() && artwork == ArtworkWrite::keep(); }

    bool operator==(const TagWrite &) const = default;
};

/// The plan for a file: what of its pending edits differs from what it holds.
TagWrite tagWrite(const EditableAudioFile &file, const TagChangeSet &changes);

} // namespace tonearm
