// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "metadata/ServiceAddresses.h"
#include "web/WebClient.h"
#include "workflow/records/ReleaseInfo.h"

#include <QCoroTask>

#include <QList>
#include <QString>

#include <chrono>
#include <stop_token>

namespace tonearm {

/// Asks MusicBrainz for releases. Callable from any thread with an event loop, several at once; replies
/// are read on the client's thread.
///
/// All operations throw MetadataServiceError, or CancellationError when a stop is requested.
class MusicBrainzService
{
public:
    /// How many releases a search asks for.
    static constexpr int resultLimit = 25;

    /// The service allows one request a second.
    static constexpr std::chrono::seconds minimumInterval{1};

    /// The session has to outlive the service. `version` is the program's own.
    MusicBrainzService(WebSession &session, const ServiceAddresses &addresses, const QString &version,
                       RequestThrottle throttle = RequestThrottle(minimumInterval));

    /// Releases by an artist, of an album, or both, in the service's order and without tracks. Asks
    /// nothing if both texts are blank.
    QCoro::Task<QList<ReleaseInfo>> search(QString artist, QString album, std::stop_token stop);

    /// The releases that hold a disc, each with the tracks of the medium that is it; none if the disc is
    /// unknown to the service.
    QCoro::Task<QList<ReleaseInfo>> lookUpDisc(QString discID, std::stop_token stop);

    /// The tracks of all media of a release in one list.
    QCoro::Task<QList<TrackInfo>> tracks(QString releaseID, std::stop_token stop);

private:
    QString m_webSite;
    WebClient m_client;
};

} // namespace tonearm
