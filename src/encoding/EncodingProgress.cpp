// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/EncodingProgress.h"

namespace tonearm {

using namespace Qt::StringLiterals;

EncodingProgress EncodingProgress::within(qint64 index, qint64 count, const QString &title, double fraction)
{
    return {
        .trackNumber = index + 1,
        .totalTracks = count,
        .title = title,
        .overallFraction = (fraction + static_cast<double>(index)) / static_cast<double>(count),
    };
}

QString EncodingProgress::message() const
{
    return u"Encoding %1 of %2: %3"_s.arg(QString::number(trackNumber), QString::number(totalTracks), title);
}

} // namespace tonearm
