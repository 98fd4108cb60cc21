// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/ReadAhead.h"

#include <algorithm>

namespace tonearm {

ReadAhead::ReadAhead(SectorSource &source, qint64 first, qint64 end)
    : m_source(source)
    , m_first(first)
    , m_end(end)
{
}

QByteArrayView ReadAhead::sectors(qint64 sector, qint64 count)
{
    if (sector < m_first || sector >= m_end || count <= 0)
        return {};
    if (!holds(sector))
        fetch(sector, std::min(count, m_end - sector));
    const qint64 skipped = sector - m_heldFrom;
    const qint64 given = std::min(count, heldSectors() - skipped);
    m_next = sector + given;
    return QByteArrayView(m_held).sliced(skipped * discFrameBytes, given * discFrameBytes);
}

bool ReadAhead::holds(qint64 sector) const
{
    return sector >= m_heldFrom && sector < m_heldFrom + heldSectors();
}

void ReadAhead::fetch(qint64 sector, qint64 count)
{
    const bool readsAhead = sector == m_next && sector >= m_carefulUntil;
    const qint64 wanted = readsAhead ? std::min(std::max(count, window), m_end - sector) : count;
    if (tryRead(sector, wanted))
        return;
    m_carefulUntil = std::max(m_carefulUntil, sector + wanted);
    if (wanted > count && tryRead(sector, count))
        return;
    readUpToBadSector(sector, count);
}

bool ReadAhead::tryRead(qint64 sector, qint64 count)
{
    m_heldFrom = sector;
    m_held.resize(count * discFrameBytes);
    if (m_source.read(sector, count, m_held.data()))
        return true;
    m_held.clear();
    return false;
}

void ReadAhead::readUpToBadSector(qint64 sector, qint64 count)
{
    m_heldFrom = sector;
    m_held.resize(count * discFrameBytes);
    // A single sector has just failed.
    qint64 good = 0;
    while (count > 1 && good < count &&
           m_source.read(sector + good, 1, m_held.data() + good * discFrameBytes))
        ++good;
    m_held.resize(good * discFrameBytes);
}

} // namespace tonearm
