// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/AudioDisc.h"

#include <QtGlobal>

namespace tonearm {

/// Where audio sectors come from.
class SectorSource
{
public:
    virtual ~SectorSource() = default;

    /// Reads sectors from the logical sector `first` on into `out`, with little-endian samples; false if
    /// any of them can't be read, with `out` in any state. Calls come from several threads.
    virtual bool read(qint64 first, qint64 count, char *out) = 0;
};

} // namespace tonearm
