// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/AudioDisc.h"

#include <QString>
#include <QUrl>

#include <optional>

namespace tonearm {

/// One audio track of a disc.
struct DiscTrack
{
    /// As on the disc, from 1.
    qint64 number = 0;
    /// The length in frames, never negative.
    qint64 frameCount = 0;
    /// What the volume calls the track, if it has a title for it.
    std::optional<QString> title = {};
    /// The AIFF file on the volume.
    QUrl audioFileURL = {};
    /// Whether this is the last audio track of a disc with more than one session.
    bool precedesDataSession = false;

    bool operator==(const DiscTrack &) const = default;
};

} // namespace tonearm
