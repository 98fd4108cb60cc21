// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/records/MetadataSource.h"
#include "workflow/records/TrackInfo.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace tonearm {

/// One release as an online service describes it. An unknown text is empty.
struct ReleaseInfo
{
    /// The service's identifier of the release.
    QString id = {};
    QString artist = {};
    QString title = {};
    /// As the service gives it; may be a full date.
    QString year = {};
    QString label = {};
    QString catalogNumber = {};
    QString country = {};
    QString packaging = {};
    QString mediaFormat = {};
    QString barcode = {};
    /// The release's page at the service.
    QString url = {};
    MetadataSource source = MetadataSource::musicBrainz;
    /// May be empty in a search result.
    QList<TrackInfo> tracks = {};
    /// Addresses of candidate images.
    QStringList artworkURLs = {};
    /// The number of tracks where `tracks` hasn't been loaded.
    std::optional<qint64> trackCount = {};
    /// Which disc of the release, from 1, is the one that was looked up.
    std::optional<qint64> matchedDiscPosition = {};
    std::optional<qint64> discCount = {};

    /// "1 track", "12 tracks"; nothing where the number is unknown.
    std::optional<QString> trackCountText() const;

    /// "Artist - Title (Year) [Service]", without the parts that are unknown.
    QString displayName() const;

    /// What tells this release from others of the same title, in one line.
    QString detailLine() const;

    bool operator==(const ReleaseInfo &) const = default;
};

} // namespace tonearm
