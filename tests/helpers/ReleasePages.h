// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/LoopbackServer.h"
#include "workflow/records/ReleaseInfo.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace tonearm::test {

/// Both online services and the archive of covers on one loopback server, answering with the releases
/// that a test puts in.
class ReleasePages
{
public:
    static constexpr auto musicBrainzSearch = "/ws/2/release";
    static constexpr auto discogsSearch = "/database/search";

    ReleasePages();

    LoopbackServer &server() { return m_server; }

    QString origin() const { return m_server.origin(); }

    /// What each service finds, whatever it is asked. Of a release its id, artist, title, year and number
    /// of tracks count.
    void findAtMusicBrainz(const QList<ReleaseInfo> &releases);
    void findAtDiscogs(const QList<ReleaseInfo> &releases);

    /// The tracklist of a release of MusicBrainz.
    void addTracks(const QString &releaseID, const QStringList &titles);

    /// A release of Discogs in full, with the address of its picture if that isn't empty.
    void addDetails(const ReleaseInfo &release, const QStringList &titles, const QString &pictureURL = {});

    /// The front cover of a release of MusicBrainz.
    void addCover(const QString &releaseID, const LoopbackResponse &picture);

    /// The paths of what was asked, in order.
    QList<QByteArray> askedPaths() const;

private:
    LoopbackServer m_server;
};

} // namespace tonearm::test
