// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "metadata/DiscogsPayload.h"
#include "workflow/records/ReleaseInfo.h"

namespace tonearm::discogs {

/// A track's length in milliseconds from "H:MM:SS", "MM:SS" or a number of seconds; nothing for any
/// other text.
std::optional<qint64> durationMilliseconds(const QString &text);

/// The rows that are tracks and have a title.
QList<TrackInfo> trackInfos(const QList<Track> &tracklist);

/// The images' addresses, primary images first, otherwise in their order.
QStringList artworkURLs(const QList<Image> &images);

/// A summary without tracks. `webSite` is the address before a page's path.
ReleaseInfo releaseInfo(const Result &result, const QString &webSite);

/// `askedID` stands in for an identifier that the service leaves out.
ReleaseInfo releaseInfo(const ReleaseDetails &details, const QString &askedID, const QString &webSite);

} // namespace tonearm::discogs
