// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cddafs/SectorSource.h"
#include "helpers/FailingSource.h"

#include <cstring>
#include <functional>

namespace tonearm::test {

/// A disc whose sectors can be read as a function says, which may block; else like FailingSource's.
class UnreliableSource : public SectorSource
{
public:
    /// Whether `count` sectors from `first` on can be read this time. Called from several threads.
    using Judge = std::function<bool(qint64 first, qint64 count)>;

    explicit UnreliableSource(Judge judge)
        : m_judge(std::move(judge))
    {
    }

    bool read(qint64 first, qint64 count, char *out) override
    {
        if (!m_judge(first, count))
            return false;
        for (qint64 at = 0; at < count; ++at)
            std::memcpy(out + at * discFrameBytes, FailingSource::sector(first + at).constData(),
                        discFrameBytes);
        return true;
    }

private:
    const Judge m_judge;
};

} // namespace tonearm::test
