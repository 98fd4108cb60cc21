// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/FailingSource.h"

#include "helpers/DiscImage.h"

#include <cstring>
#include <utility>

namespace tonearm::test {

bool FailingSource::read(qint64 first, qint64 count, char *out)
{
    const std::lock_guard lock(m_mutex);
    m_readings.append({first, count});
    for (qint64 number = first; number < first + count; ++number) {
        if (m_bad.contains(number))
            return false;
        std::memcpy(out + (number - first) * discFrameBytes, sector(number).constData(), discFrameBytes);
    }
    return true;
}

QList<FailingSource::Reading> FailingSource::takeReadings()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_readings, {});
}

QByteArray FailingSource::sector(qint64 number)
{
    QByteArray bytes(discFrameBytes, '\0');
    char *out = bytes.data();
    for (qsizetype at = 0; at < discFrameBytes; ++at)
        out[at] = static_cast<char>((number * 31 + at * 7 + at / 256) & 0xFF);
    return bytes;
}

QByteArray FailingSource::fileSectors(qint64 first, qint64 count)
{
    QByteArray bytes;
    for (qint64 number = first; number < first + count; ++number)
        bytes += swappedSamples(sector(number));
    return bytes;
}

} // namespace tonearm::test
