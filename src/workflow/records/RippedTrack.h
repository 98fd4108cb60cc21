// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/records/RipVerification.h"

#include <QString>
#include <QUrl>

namespace tonearm {

/// The result of reading one track of a disc.
struct RippedTrack
{
    /// The temporary audio file; whoever holds the record deletes it.
    QUrl url = {};
    /// SHA-256 in lower-case hexadecimal.
    QString checksum = {};
    RipVerification assurance = RipVerification::unverified;

    bool operator==(const RippedTrack &) const = default;
};

} // namespace tonearm
