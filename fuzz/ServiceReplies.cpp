// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"

#include "metadata/DiscogsMapping.h"
#include "metadata/MusicBrainzMapping.h"
#include "web/ServiceJson.h"

#include <cstdlib>

namespace tonearm::fuzz {

namespace {

const QString webSite = QStringLiteral("https://web.invalid");

void readMusicBrainz(const JsonNode &reply)
{
    for (const musicBrainz::Release &release : musicBrainz::readReleases(reply)) {
        const ReleaseInfo info = musicBrainz::releaseInfo(release, QStringLiteral("disc"), webSite);
        if (info.source != MetadataSource::musicBrainz)
            std::abort();
    }
    (void)musicBrainz::trackInfos(musicBrainz::readTracks(reply));
}

void readDiscogs(const JsonNode &reply)
{
    for (const discogs::Result &result : discogs::readResults(reply))
        (void)discogs::releaseInfo(result, webSite);
}

void readDiscogsDetails(const JsonNode &reply)
{
    const discogs::ReleaseDetails details = discogs::readReleaseDetails(reply);
    if (discogs::releaseInfo(details, QStringLiteral("1"), webSite).id.isEmpty())
        std::abort();
    for (const discogs::Track &track : details.tracklist)
        if (discogs::durationMilliseconds(track.duration).value_or(0) < 0)
            std::abort();
}

template <typename Read> void tryReading(const QByteArray &bytes, const Read &read)
{
    try {
        readServiceJson(bytes, MetadataSource::discogs, read);
    } catch (const MetadataServiceError &error) {
        if (error.description().isEmpty())
            std::abort();
    }
}

} // namespace

void tryBytes(const QByteArray &bytes)
{
    tryReading(bytes, readMusicBrainz);
    tryReading(bytes, readDiscogs);
    tryReading(bytes, readDiscogsDetails);
}

} // namespace tonearm::fuzz
