// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/TrackReader.h"

#include "cddafs/AiffHeader.h"

#include <algorithm>
#include <cstring>

namespace tonearm {

namespace {

// Copies bytes of samples with the two bytes of each sample exchanged; either end may split a sample.
void copySwapped(const char *sound, qint64 from, qint64 size, char *out)
{
    for (qint64 index = 0; index < size; ++index)
        out[index] = sound[(from + index) ^ 1];
}

} // namespace

qint64 trackFileSize(const AudioTrack &track)
{
    return discFrameBytes + track.sectors * discFrameBytes;
}

TrackReader::TrackReader(SectorSource &source, const AudioTrack &track)
    : m_track(track)
    , m_header(aiffHeader(track.sectors))
    , m_ahead(source, track.start, track.start + track.sectors)
{
}

std::optional<qint64> TrackReader::read(qint64 offset, qint64 size, char *out)
{
    if (offset < 0)
        return std::nullopt;
    const qint64 wanted = std::min(size, trackFileSize(m_track) - offset);
    if (wanted <= 0)
        return 0;
    const std::lock_guard lock(m_mutex);
    qint64 done = readHeader(offset, wanted, out);
    while (done < wanted) {
        const qint64 got = readSound(offset + done - m_header.size(), wanted - done, out + done);
        if (got == 0)
            break;
        done += got;
    }
    return done > 0 ? std::optional(done) : std::nullopt;
}

qint64 TrackReader::readHeader(qint64 offset, qint64 size, char *out) const
{
    const qint64 count = std::clamp<qint64>(m_header.size() - offset, 0, size);
    if (count > 0)
        std::memcpy(out, m_header.constData() + offset, static_cast<size_t>(count));
    return count;
}

qint64 TrackReader::readSound(qint64 offset, qint64 size, char *out)
{
    const qint64 sector = offset / discFrameBytes;
    const qint64 inSector = offset % discFrameBytes;
    const qint64 sectorCount = (inSector + size + discFrameBytes - 1) / discFrameBytes;
    const QByteArrayView sound = m_ahead.sectors(m_track.start + sector, sectorCount);
    const qint64 count = std::clamp<qint64>(sound.size() - inSector, 0, size);
    copySwapped(sound.data(), inSector, count, out);
    return count;
}

} // namespace tonearm
