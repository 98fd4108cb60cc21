// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/DiscTrack.h"
#include "workflow/records/ChapterInfo.h"

#include <QList>
#include <QString>
#include <QUrl>

#include <optional>

namespace tonearm {

/// An audio CD in a drive.
struct DiscInfo
{
    /// Where it is mounted.
    QUrl volumeURL;
    QString volumeName;
    /// The MusicBrainz disc ID.
    QString discID;
    /// In ascending order of their numbers.
    QList<DiscTrack> tracks;
    /// The drive's device for readers that go past the volume, when known.
    std::optional<QUrl> rawDevice = {};

    /// Whether any track's title is present and not empty; blanks count as a title.
    bool hasDiscTitles() const;

    /// The length of all tracks in minutes and seconds, "75:09"; an hour counts as 60 minutes.
    QString totalDurationText() const;

    /// "12 tracks · 47:03".
    QString summary() const;

    /// One chapter for each track. Tracks are separate files, so that every chapter starts at 0.
    QList<ChapterInfo> chapters() const;

    bool operator==(const DiscInfo &) const = default;
};

} // namespace tonearm
