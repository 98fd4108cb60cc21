// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/EncodingProgress.h"

namespace tonearm {

EncodingProgress EncodingProgress::within(qint64 index, qint64 count, const QString &title, double fraction)
{
    return {
        .trackNumber = index + 1,
        .totalTracks = count,
        .title = title,
        .overallFraction = (fraction + static_cast<double>(index)) / static_cast<double>(count),
    };
}

} // namespace tonearm
