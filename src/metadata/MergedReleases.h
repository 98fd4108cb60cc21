// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/records/ReleaseInfo.h"

#include <QList>
#include <QString>

namespace tonearm {

/// The releases without those that one service names twice, and without those that are like an earlier
/// one of the same service in artist, title, year and catalogue number. The first stays.
QList<ReleaseInfo> withoutRepetitions(const QList<ReleaseInfo> &releases);

/// The releases in the order in which they are shown: exact matches of the album's title first, then by
/// year with unknown years last, then by service; otherwise as they stand. A blank album matches nothing.
QList<ReleaseInfo> sortedForAlbum(QList<ReleaseInfo> releases, const QString &album);

/// A release in full, its gaps filled from what the search told of it.
ReleaseInfo filledFromSummary(ReleaseInfo details, const ReleaseInfo &summary);

} // namespace tonearm
