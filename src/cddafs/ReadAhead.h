// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cddafs/SectorSource.h"

#include <QByteArray>
#include <QByteArrayView>

namespace tonearm {

/// Reads a range of sectors from a source, ahead of what was asked as long as the reading is sequential
/// and nothing is wrong with the disc. Keeps only what was read ahead: who wants the disc read afresh
/// takes a new object. For one thread at a time.
class ReadAhead
{
public:
    /// So many sectors are read at once, 150 KB: enough to keep a drive at its speed.
    static constexpr qint64 window = 64;

    /// For the sectors from `first` up to `end`, which isn't one of them.
    ReadAhead(SectorSource &source, qint64 first, qint64 end);

    /// The bytes of at most `count` sectors from `sector` on: fewer if that is what is at hand or a bad
    /// sector follows, none if `sector` itself is bad or outside the range. Valid until the next call.
    QByteArrayView sectors(qint64 sector, qint64 count);

private:
    bool holds(qint64 sector) const;

    qint64 heldSectors() const { return m_held.size() / discFrameBytes; }

    void fetch(qint64 sector, qint64 count);
    bool tryRead(qint64 sector, qint64 count);
    void readUpToBadSector(qint64 sector, qint64 count);

    SectorSource &m_source;
    const qint64 m_first;
    const qint64 m_end;
    qint64 m_heldFrom = 0;
    QByteArray m_held;
    // Where a sequential reader goes on.
    qint64 m_next = -1;
    // A bad sector lies somewhere before this one.
    qint64 m_carefulUntil = 0;
};

} // namespace tonearm
