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

/// Asks Discogs for releases, without credentials. Callable from any thread with an event loop, several
/// at once; replies are read on the client's thread.
///
/// All operations throw MetadataServiceError, or CancellationError when a stop is requested.
class DiscogsService
{
public:
    /// How many releases a search asks for.
    static constexpr int resultLimit = 25;

    /// Keeps to what the service allows to those without credentials.
    static constexpr std::chrono::seconds minimumInterval{3};

    /// The session has to outlive the service. `version` is the program's own.
    DiscogsService(WebSession &session, const ServiceAddresses &addresses, const QString &version,
                   RequestThrottle throttle = RequestThrottle(minimumInterval));

    /// Releases by an artist, of an album, or both, in the service's order. They are summaries: without
    /// tracks, the artist's name as part of the title. Asks nothing if both texts are blank.
    QCoro::Task<QList<ReleaseInfo>> search(QString artist, QString album, std::stop_token stop);

    /// A release in full.
    QCoro::Task<ReleaseInfo> details(QString releaseID, std::stop_token stop);

private:
    QString m_webSite;
    WebClient m_client;
};

} // namespace tonearm
