// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cddafs/DiscLayout.h"
#include "cddafs/ReadAhead.h"

#include <QByteArray>

#include <mutex>
#include <optional>

namespace tonearm {

/// The size of a track's AIFF file.
qint64 trackFileSize(const AudioTrack &track);

/// One open AIFF file of a track: a header, then the samples in big-endian order. Nothing that one
/// object has read serves another, so that a second opening reads the disc again.
class TrackReader
{
public:
    /// The source has to outlive this.
    TrackReader(SectorSource &source, const AudioTrack &track);

    /// Reads up to `size` bytes from `offset` on into `out` and returns how many there were: fewer at the
    /// end of the file or before a bad sector. Nothing if the first of them can't be read.
    std::optional<qint64> read(qint64 offset, qint64 size, char *out);

private:
    qint64 readHeader(qint64 offset, qint64 size, char *out) const;
    qint64 readSound(qint64 offset, qint64 size, char *out);

    const AudioTrack m_track;
    const QByteArray m_header;
    std::mutex m_mutex;
    ReadAhead m_ahead;
};

} // namespace tonearm
