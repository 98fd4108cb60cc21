// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "metadata/MetadataSearchOutcome.h"

#include <QCoroTask>

#include <QString>

#include <stop_token>

namespace tonearm {

class DiscogsService;
class MusicBrainzService;

/// Searches both services as one. Used on one thread, which needs an event loop.
class MetadataSearchService
{
public:
    /// Both clients have to outlive the service and its calls.
    MetadataSearchService(MusicBrainzService &musicBrainz, DiscogsService &discogs);

    /// Asks both services at the same time and merges what they find into one ordered list without
    /// repetitions. Never fails: a service that does is told of in a notice. A stop request stops both,
    /// and what they hadn't found by then is missing without a notice.
    QCoro::Task<MetadataSearchOutcome> search(QString artist, QString album, std::stop_token stop);

    /// The releases that hold a disc, in MusicBrainz's order; Discogs knows no disc IDs. Never fails.
    QCoro::Task<MetadataSearchOutcome> lookUpDisc(QString discID, std::stop_token stop);

    /// The release with its tracks; one that has them stays as it is. Throws MetadataServiceError, or
    /// CancellationError when a stop is requested.
    QCoro::Task<ReleaseInfo> complete(ReleaseInfo release, std::stop_token stop);

private:
    MusicBrainzService &m_musicBrainz;
    DiscogsService &m_discogs;
};

} // namespace tonearm
