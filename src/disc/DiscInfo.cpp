// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/DiscInfo.h"

#include "support/Numbers.h"
#include "support/Text.h"

#include <algorithm>
#include <cmath>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

double seconds(const DiscTrack &track)
{
    return static_cast<double>(track.frameCount) / discFramesPerSecond;
}

QString chapterTitle(const DiscTrack &track)
{
    const QString title = trimmed(track.title.value_or(QString()));
    return title.isEmpty() ? u"Track "_s + QString::number(track.number) : title;
}

ChapterInfo chapter(qint64 id, const DiscTrack &track)
{
    const QString title = chapterTitle(track);
    return {.id = id,
            .startSeconds = 0,
            .endSeconds = seconds(track),
            .originalTitle = title,
            .mappedTitle = title};
}

} // namespace

bool DiscInfo::hasDiscTitles() const
{
    return std::any_of(tracks.begin(), tracks.end(),
                       [](const DiscTrack &track) { return track.title && !track.title->isEmpty(); });
}

QString DiscInfo::totalDurationText() const
{
    double sum = 0;
    for (const DiscTrack &track : tracks)
        sum += seconds(track);
    return minutesAndSeconds(std::round(sum));
}

QString DiscInfo::summary() const
{
    return counted(tracks.size(), u"track"_s) + u" · "_s + totalDurationText();
}

QList<ChapterInfo> DiscInfo::chapters() const
{
    QList<ChapterInfo> result;
    result.reserve(tracks.size());
    for (const DiscTrack &track : tracks)
        result.append(chapter(result.size(), track));
    return result;
}

} // namespace tonearm
