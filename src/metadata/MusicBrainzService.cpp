// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/MusicBrainzService.h"

#include "metadata/MusicBrainzMapping.h"
#include "metadata/TrimmedID.h"
#include "web/UserAgent.h"

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QueryPair asJson()
{
    return {u"fmt"_s, u"json"_s};
}

QList<ReleaseInfo> releaseInfos(const JsonNode &reply, const std::optional<QString> &discID,
                                const QString &webSite)
{
    QList<ReleaseInfo> result;
    for (const musicBrainz::Release &release : musicBrainz::readReleases(reply))
        result.append(musicBrainz::releaseInfo(release, discID, webSite));
    return result;
}

} // namespace

MusicBrainzService::MusicBrainzService(WebSession &session, const ServiceAddresses &addresses,
                                       const QString &version, RequestThrottle throttle)
    : m_webSite(addresses.musicBrainzWebSite)
    , m_client(session,
               {MetadataSource::musicBrainz, addresses.musicBrainz, userAgent(version, contactLink())},
               std::move(throttle))
{
}

QCoro::Task<QList<ReleaseInfo>> MusicBrainzService::search(QString artist, QString album,
                                                           std::stop_token stop)
{
    const std::optional<QString> query = musicBrainz::searchQuery(artist, album);
    if (!query)
        co_return {};
    const QStringList path{u"ws"_s, u"2"_s, u"release"_s};
    const QList<QueryPair> pairs{{u"query"_s, *query}, asJson(), {u"limit"_s, QString::number(resultLimit)}};
    const auto read = [webSite = m_webSite](const JsonNode &reply) {
        return releaseInfos(reply, std::nullopt, webSite);
    };
    co_return co_await m_client.get(path, pairs, read, stop);
}

QCoro::Task<QList<ReleaseInfo>> MusicBrainzService::lookUpDisc(QString discID, std::stop_token stop)
{
    const QString id = trimmedID(discID);
    const QStringList path{u"ws"_s, u"2"_s, u"discid"_s, id};
    const QList<QueryPair> pairs{{u"inc"_s, u"artists+labels+recordings"_s}, asJson()};
    const auto read = [webSite = m_webSite, id](const JsonNode &reply) {
        return releaseInfos(reply, id, webSite);
    };
    try {
        co_return co_await m_client.get(path, pairs, read, stop);
    } catch (const MetadataServiceError &error) {
        if (!error.saysNotFound())
            throw;
    }
    co_return {};
}

QCoro::Task<QList<TrackInfo>> MusicBrainzService::tracks(QString releaseID, std::stop_token stop)
{
    const QString id = trimmedID(releaseID);
    const QStringList path{u"ws"_s, u"2"_s, u"release"_s, id};
    const QList<QueryPair> pairs{{u"inc"_s, u"recordings"_s}, asJson()};
    const auto read = [](const JsonNode &reply) {
        return musicBrainz::trackInfos(musicBrainz::readTracks(reply));
    };
    try {
        co_return co_await m_client.get(path, pairs, read, stop);
    } catch (const MetadataServiceError &error) {
        if (!error.saysNotFound())
            throw;
    }
    throw MetadataServiceError::releaseNotFound(MetadataSource::musicBrainz, id);
}

} // namespace tonearm
