// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// Where the online services are, each without a slash at its end.
struct ServiceAddresses
{
    QString musicBrainz = QStringLiteral("https://musicbrainz.org");
    QString musicBrainzWebSite = QStringLiteral("https://musicbrainz.org");
    QString discogs = QStringLiteral("https://api.discogs.com");
    QString discogsWebSite = QStringLiteral("https://www.discogs.com");
    QString coverArtArchive = QStringLiteral("https://coverartarchive.org");
};

} // namespace tonearm
