// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/CoverArtService.h"

#include "artwork/CoverArtError.h"
#include "artwork/PictureEnding.h"
#include "metadata/ArtworkType.h"
#include "web/MetadataServiceError.h"
#include "web/ServiceURL.h"
#include "web/UserAgent.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// A reply may name anything, a file of this machine for example; only what a server can be asked for counts.
bool isWebAddress(const QUrl &url)
{
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == u"https"_s || url.scheme() == u"http"_s);
}

} // namespace

CoverArtService::CoverArtService(WebSession &session, const ServiceAddresses &addresses,
                                 const QString &version)
    : m_session(session)
    , m_archive(addresses.coverArtArchive)
    , m_userAgent(userAgent(version, contactLink()))
{
}

QCoro::Task<DownloadedCoverArt> CoverArtService::fetchForMusicBrainz(QString releaseID, std::stop_token stop)
{
    const QUrl url = serviceURL(m_archive, {u"release"_s, releaseID, u"front"_s});
    co_return co_await download(url, MetadataSource::musicBrainz, stop);
}

QCoro::Task<DownloadedCoverArt> CoverArtService::fetchForDiscogs(ReleaseInfo release, std::stop_token stop)
{
    const QUrl url(release.artworkURLs.value(0), QUrl::StrictMode);
    if (!isWebAddress(url))
        throw CoverArtError::noArtworkAvailable(MetadataSource::discogs);
    co_return co_await download(url, MetadataSource::discogs, stop);
}

QCoro::Task<DownloadedCoverArt> CoverArtService::download(QUrl url, MetadataSource source,
                                                          std::stop_token stop)
{
    const WebRequest request{.url = url, .userAgent = m_userAgent, .accept = u"image/*"_s};
    try {
        const WebReply reply = co_await m_session.data(request, source, maximumPictureBytes, stop);
        const QString extension = artworkExtension(reply.contentType, reply.body);
        if (reply.body.isEmpty())
            throw CoverArtError::noArtworkAvailable(source);
        // The transfer of a picture of no known length can break off without anybody noticing.
        if (!reply.isKnownWhole && lacksPictureEnd(reply.body))
            throw MetadataServiceError::networkFailure(source, u"Connection closed."_s);
        co_return {.data = reply.body, .fileExtension = extension, .source = source};
    } catch (const MetadataServiceError &error) {
        if (!error.saysNotFound())
            throw;
    }
    throw CoverArtError::noArtworkAvailable(source);
}

} // namespace tonearm
