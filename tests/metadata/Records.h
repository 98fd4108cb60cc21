// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "metadata/MetadataSearchOutcome.h"
#include "web/MetadataServiceError.h"
#include "workflow/records/ReleaseInfo.h"

#include <optional>
#include <ostream>

namespace tonearm {

// GoogleTest's name.
// NOLINTBEGIN(readability-identifier-naming)
void PrintTo(const TrackInfo &track, std::ostream *out);
void PrintTo(const ReleaseInfo &release, std::ostream *out);
void PrintTo(const MetadataServiceError &error, std::ostream *out);
// NOLINTEND(readability-identifier-naming)

} // namespace tonearm

namespace tonearm::test {

// In a test, `musicBrainz` and `discogs` are the services themselves.
inline constexpr auto musicBrainzSource = MetadataSource::musicBrainz;
inline constexpr auto discogsSource = MetadataSource::discogs;

/// A track without an identity.
TrackInfo track(const QString &position, const QString &title, std::optional<qint64> milliseconds = {});

// What is left for comparing when the tracks' identities, which are random, are taken away.

QList<TrackInfo> plain(QList<TrackInfo> tracks);
ReleaseInfo plain(ReleaseInfo release);

/// The releases' identifiers in their order.
QStringList idsOf(const QList<ReleaseInfo> &releases);

} // namespace tonearm::test
