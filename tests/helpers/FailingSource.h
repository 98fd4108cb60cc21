// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cddafs/SectorSource.h"

#include <QByteArray>
#include <QList>

#include <mutex>
#include <set>

namespace tonearm::test {

/// A disc some sectors of which can't be read.
class FailingSource : public SectorSource
{
public:
    struct Reading
    {
        qint64 first = 0;
        qint64 count = 0;

        bool operator==(const Reading &) const = default;
    };

    explicit FailingSource(std::set<qint64> badSectors = {})
        : m_bad(std::move(badSectors))
    {
    }

    bool read(qint64 first, qint64 count, char *out) override;

    /// What was asked of the disc since the last call of this.
    QList<Reading> takeReadings();

    /// What a sector holds, with little-endian samples.
    static QByteArray sector(qint64 number);

    /// Several of them with big-endian samples, as a track's file has them.
    static QByteArray fileSectors(qint64 first, qint64 count);

private:
    const std::set<qint64> m_bad;
    std::mutex m_mutex;
    QList<Reading> m_readings;
};

} // namespace tonearm::test
