// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cddafs/DiscLayout.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

#include <optional>

namespace tonearm {

/// A file in the volume's root: a track's, or one with its contents at hand.
struct VolumeFile
{
    /// UTF-8.
    QByteArray name;
    qint64 size = 0;
    /// Present for a track's file.
    std::optional<AudioTrack> track = {};
    /// For other files.
    QByteArray contents = {};

    bool operator==(const VolumeFile &) const = default;
};

/// What the volume of a disc holds: its table of contents, and a file for each audio track. `titles` are
/// by track number.
QList<VolumeFile> volumeFiles(const DiscLayout &layout, const QMap<int, QString> &titles);

} // namespace tonearm
