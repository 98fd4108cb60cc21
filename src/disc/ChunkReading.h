// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/RipWaits.h"
#include "disc/TrackSource.h"
#include "disc/Turn.h"

#include <QCoroTask>

#include <QByteArray>
#include <QString>

#include <deque>
#include <stop_token>

namespace tonearm {

/// The size, in bytes, at which a reading is tried again: half in whole frames, at least one.
qint64 smallerReadSize(qint64 size);

/// Reads chunks of a track from a drive that may fail: a failed reading is tried again, five times, with
/// the file opened anew and a size that falls each time.
class ChunkReading
{
public:
    /// `workingSize` falls to the size of each reading that succeeds below it. The turn is given up while
    /// it waits to try again. All references have to outlive this.
    ChunkReading(TrackSource &source, qint64 trackNumber, qint64 &workingSize, Turn &turn,
                 const RipWaits &waits);

    /// What the first reading of the order gives, at least one byte. The rest of the order may be read ahead:
    /// the next call has to go on with it. Throws DiscError (trackReadFailed) and CancellationError.
    QCoro::Task<QByteArray> read(ReadingOrder order, qint64 offset, std::stop_token stop);

private:
    struct Attempt
    {
        QByteArray bytes = {};
        /// What went wrong, if there are no bytes.
        QString failure = {};
    };

    QCoro::Task<Attempt> attempt(ReadingOrder order, std::stop_token stop);
    QCoro::Task<Attempt> attemptAnew(qint64 size, qint64 offset, std::stop_token stop);
    QCoro::Task<Attempt> attemptFrom(qint64 offset, qint64 size, std::stop_token stop);
    QCoro::Task<> pause(std::stop_token stop);

    TrackSource &m_source;
    const qint64 m_trackNumber;
    qint64 &m_workingSize;
    Turn &m_turn;
    const RipWaits &m_waits;
    // What the source has read further than the copy is.
    std::deque<Reading> m_ahead;
};

} // namespace tonearm
