// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "metadata/DownloadedCoverArt.h"
#include "metadata/ServiceAddresses.h"
#include "web/WebSession.h"
#include "workflow/records/ReleaseInfo.h"

#include <QCoroTask>

#include <QString>
#include <QUrl>

#include <stop_token>

namespace tonearm {

/// Downloads a release's front cover. Keeps no state; calls can run side by side, from any thread with
/// an event loop.
///
/// All operations throw CoverArtError, MetadataServiceError, or CancellationError when a stop is
/// requested.
class CoverArtService
{
public:
    /// The session has to outlive the service. `version` is the program's own.
    CoverArtService(WebSession &session, const ServiceAddresses &addresses, const QString &version);

    /// The picture that the Cover Art Archive names as the release's front.
    QCoro::Task<DownloadedCoverArt> fetchForMusicBrainz(QString releaseID, std::stop_token stop);

    /// The first of the release's artwork URLs.
    QCoro::Task<DownloadedCoverArt> fetchForDiscogs(ReleaseInfo release, std::stop_token stop);

private:
    QCoro::Task<DownloadedCoverArt> download(QUrl url, MetadataSource source, std::stop_token stop);

    WebSession &m_session;
    QString m_archive;
    QString m_userAgent;
};

} // namespace tonearm
