// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/OnlineServices.h"

namespace tonearm {

OnlineServices::OnlineServices(const ServiceAddresses &addresses, const QString &appVersion,
                               const Intervals &intervals)
    : m_musicBrainz(m_session, addresses, appVersion, RequestThrottle(intervals.musicBrainz))
    , m_discogs(m_session, addresses, appVersion, RequestThrottle(intervals.discogs))
    , m_metadataSearch(m_musicBrainz, m_discogs)
    , m_coverArt(m_session, addresses, appVersion)
{
}

OnlineServices::OnlineServices(const ServiceAddresses &addresses, const QString &appVersion)
    : OnlineServices(addresses, appVersion, Intervals())
{
}

} // namespace tonearm
