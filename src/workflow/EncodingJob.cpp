// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/EncodingJob.h"

#include "disc/DiscError.h"

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

TrackEncoding trackOf(const EncodingJob &job, qsizetype index, const QString &filename)
{
    TrackEncoding track;
    track.chapter = job.chapters[index];
    track.source = job.source;
    track.output = QUrl::fromLocalFile(job.destination.toLocalFile() + u'/' + filename);
    track.metadata = job.metadata;
    track.number = index + 1;
    track.total = job.chapters.size();
    return track;
}

QString DiscTrackJob::positionText() const
{
    return u"%1 of %2"_s.arg(index + 1).arg(job->chapters.size());
}

DiscJobProgress DiscTrackJob::progress() const
{
    return {index, job->chapters.size(), job->isVerifying};
}

DiscTrack trackOfChapter(const DiscInfo &disc, const ChapterInfo &chapter)
{
    const qint64 number = chapter.id + 1;
    const auto isIt = [number](const DiscTrack &track) { return track.number == number; };
    const auto found = std::find_if(disc.tracks.begin(), disc.tracks.end(), isIt);
    if (found == disc.tracks.end())
        throw DiscError::trackUnreadable(number);
    return *found;
}

} // namespace tonearm
