// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// One unit of work of a job: a chapter of a file or a track of a disc.
struct ChapterInfo
{
    /// The chapter's number as the source gives it; for a disc the track's index from 0.
    qint64 id = 0;
    double startSeconds = 0;
    double endSeconds = 0;
    /// The title that the source itself gives.
    QString originalTitle = {};
    /// The title for the tag and the file name.
    QString mappedTitle = originalTitle;

    /// Minutes and seconds, "4:07"; an hour counts as 60 minutes.
    QString durationText() const;

    bool operator==(const ChapterInfo &) const = default;
};

} // namespace tonearm
