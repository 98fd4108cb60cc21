// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/DiscTrack.h"
#include "disc/RipFiles.h"
#include "disc/RipWaits.h"
#include "disc/TrackRipping.h"
#include "disc/Turn.h"

#include <QCoroTask>

#include <QString>

#include <memory>
#include <optional>
#include <stop_token>

namespace tonearm {

/// What of a track is to be copied, and where to.
struct CopyOrder
{
    DiscTrack track;
    /// The path of a file that isn't there yet.
    QString destination;
    /// So many bytes from the start instead of the whole file, which has to hold as many.
    std::optional<qint64> limit = {};
    TrackRipping::Progress onProgress = {};
};

/// Copies a track's file and returns its SHA-256 in lower-case hexadecimal.
///
/// A reading takes `workingSize` bytes, as it is at the start. The turn is held, and given up while a
/// drive is left in peace before another attempt; both references have to outlive the task. Throws
/// DiscError (trackUnreadable, trackReadFailed) and CancellationError, and leaves no file then.
QCoro::Task<QString> copyTrack(CopyOrder order, std::shared_ptr<const RipFiles> files, RipWaits waits,
                               qint64 &workingSize, Turn &turn, std::stop_token stop);

} // namespace tonearm
