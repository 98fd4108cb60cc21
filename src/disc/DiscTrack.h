// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace tonearm {

/// A CD's frames, which are its sectors, in a second.
inline constexpr int discFramesPerSecond = 75;

/// The bytes of sound in a frame: 588 samples of two channels with 16 bits.
inline constexpr qint64 discFrameBytes = 2352;

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
