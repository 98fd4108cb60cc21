// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "metadata/MusicBrainzPayload.h"
#include "workflow/records/ReleaseInfo.h"

namespace tonearm::musicBrainz {

/// The search expression for releases by an artist, of an album, or both; nothing if both texts are blank.
std::optional<QString> searchQuery(const QString &artist, const QString &album);

TrackInfo trackInfo(const Track &track);

QList<TrackInfo> trackInfos(const QList<Track> &tracks);

/// `discID` is the disc that was looked up, if one was: the release's tracks are then those of the
/// first medium that has it. `webSite` is the address before the page's path.
ReleaseInfo releaseInfo(const Release &release, const std::optional<QString> &discID, const QString &webSite);

} // namespace tonearm::musicBrainz
