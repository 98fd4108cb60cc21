// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/DiscInfo.h"
#include "disc/DiscTrack.h"
#include "workflow/records/RippedTrack.h"

#include <QCoroTask>

#include <QString>

#include <functional>
#include <stop_token>

namespace tonearm {

/// A reader of tracks. Callable from any thread with an event loop, on which the results come back.
///
/// Both readings throw DiscError, std::system_error if there is no place for temporary files, and
/// CancellationError; one that fails leaves no file behind.
class TrackRipping
{
public:
    /// Takes fractions from 0 to 1 on a thread of the reader's; must not block. May be empty.
    using Progress = std::function<void(double)>;

    virtual ~TrackRipping() = default;

    /// Reads a track to a temporary file, which is the caller's to delete.
    virtual QCoro::Task<RippedTrack> rip(DiscTrack track, DiscInfo disc, Progress onProgress,
                                         std::stop_token stop) = 0;

    /// Whether a second reading of the track gives the checksum of an earlier one. Keeps no file.
    virtual QCoro::Task<bool> verify(DiscTrack track, DiscInfo disc, QString checksum, Progress onProgress,
                                     std::stop_token stop) = 0;

    /// What the log calls the reader.
    virtual QString readerName() const = 0;

protected:
    TrackRipping() = default;
    TrackRipping(const TrackRipping &) = default;
    TrackRipping &operator=(const TrackRipping &) = default;
};

} // namespace tonearm
