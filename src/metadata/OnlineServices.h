// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "metadata/CoverArtService.h"
#include "metadata/DiscogsService.h"
#include "metadata/MetadataSearchService.h"
#include "metadata/MusicBrainzService.h"
#include "metadata/ServiceAddresses.h"
#include "web/WebSession.h"

#include <QString>

#include <chrono>

namespace tonearm {

/// The online services of a program, made to work together: one session, and one client each, so that a
/// service's rate limit holds for the whole program.
class OnlineServices
{
public:
    struct Intervals
    {
        std::chrono::milliseconds musicBrainz = MusicBrainzService::minimumInterval;
        std::chrono::milliseconds discogs = DiscogsService::minimumInterval;
    };

    /// `appVersion` is what the services are told.
    OnlineServices(const ServiceAddresses &addresses, const QString &appVersion, const Intervals &intervals);
    OnlineServices(const ServiceAddresses &addresses, const QString &appVersion);

    MetadataSearchService &metadataSearch() { return m_metadataSearch; }

    CoverArtService &coverArt() { return m_coverArt; }

private:
    WebSession m_session;
    MusicBrainzService m_musicBrainz;
    DiscogsService m_discogs;
    MetadataSearchService m_metadataSearch;
    CoverArtService m_coverArt;
};

} // namespace tonearm
