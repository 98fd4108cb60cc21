// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/DiscogsService.h"

#include "metadata/DiscogsMapping.h"
#include "metadata/TrimmedID.h"
#include "support/Text.h"
#include "web/UserAgent.h"

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QList<ReleaseInfo> releaseInfos(const JsonNode &reply, const QString &webSite)
{
    QList<ReleaseInfo> result;
    for (const discogs::Result &found : discogs::readResults(reply))
        result.append(discogs::releaseInfo(found, webSite));
    return result;
}

// Each term under a key of its own, so that none needs escaping.
QList<QueryPair> searchPairs(const QString &artist, const QString &album)
{
    QList<QueryPair> pairs;
    if (!artist.isEmpty())
        pairs.append({u"artist"_s, artist});
    if (!album.isEmpty())
        pairs.append({u"title"_s, album});
    pairs.append({u"type"_s, u"release"_s});
    pairs.append({u"per_page"_s, QString::number(DiscogsService::resultLimit)});
    return pairs;
}

} // namespace

DiscogsService::DiscogsService(WebSession &session, const ServiceAddresses &addresses, const QString &version,
                               RequestThrottle throttle)
    : m_webSite(addresses.discogsWebSite)
    , m_client(session, {MetadataSource::discogs, addresses.discogs, userAgent(version)}, std::move(throttle))
{
}

QCoro::Task<QList<ReleaseInfo>> DiscogsService::search(QString artist, QString album, std::stop_token stop)
{
    const QString artistText = trimmed(artist);
    const QString albumText = trimmed(album);
    if (artistText.isEmpty() && albumText.isEmpty())
        co_return {};
    const QStringList path{u"database"_s, u"search"_s};
    const QList<QueryPair> pairs = searchPairs(artistText, albumText);
    const auto read = [webSite = m_webSite](const JsonNode &reply) { return releaseInfos(reply, webSite); };
    co_return co_await m_client.get(path, pairs, read, stop);
}

QCoro::Task<ReleaseInfo> DiscogsService::details(QString releaseID, std::stop_token stop)
{
    const QString id = trimmedID(releaseID);
    const QStringList path{u"releases"_s, id};
    const auto read = [webSite = m_webSite, id](const JsonNode &reply) {
        return discogs::releaseInfo(discogs::readReleaseDetails(reply), id, webSite);
    };
    try {
        co_return co_await m_client.get(path, {}, read, stop);
    } catch (const MetadataServiceError &error) {
        if (!error.saysNotFound())
            throw;
    }
    throw MetadataServiceError::releaseNotFound(MetadataSource::discogs, id);
}

} // namespace tonearm
