// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/LoopbackServer.h"
#include "metadata/CoverArtService.h"
#include "metadata/DiscogsService.h"
#include "metadata/MetadataSearchService.h"
#include "metadata/MusicBrainzService.h"
#include "web/UserAgent.h"

#include <gtest/gtest.h>

namespace tonearm::test {

/// The clients, each with a server of its own on this machine and without a rate limit.
class ServicesFixture : public testing::Test
{
protected:
    static ServiceAddresses addressesOf(const LoopbackServer &musicBrainz, const LoopbackServer &discogs,
                                        const LoopbackServer &archive)
    {
        return {
            .musicBrainz = musicBrainz.origin(),
            .musicBrainzWebSite = QStringLiteral("https://mb.example"),
            .discogs = discogs.origin(),
            .discogsWebSite = QStringLiteral("https://dg.example"),
            .coverArtArchive = archive.origin(),
        };
    }

    static RequestThrottle unlimited() { return RequestThrottle(std::chrono::seconds(0)); }

    /// How the program names itself, without and with the address of its makers.
    static QByteArray shortUserAgent() { return "Tonearm/7.8"; }

    static QByteArray fullUserAgent() { return shortUserAgent() + " ( " + contactLink().toLatin1() + " )"; }

    const QString version = QStringLiteral("7.8");
    LoopbackServer musicBrainzServer;
    LoopbackServer discogsServer;
    LoopbackServer archiveServer;
    const ServiceAddresses addresses = addressesOf(musicBrainzServer, discogsServer, archiveServer);
    WebSession session;
    MusicBrainzService musicBrainz{session, addresses, version, unlimited()};
    DiscogsService discogs{session, addresses, version, unlimited()};
    MetadataSearchService search{musicBrainz, discogs};
    CoverArtService coverArt{session, addresses, version};
    std::stop_source stopSource;
    const std::stop_token noStop;
};

} // namespace tonearm::test
