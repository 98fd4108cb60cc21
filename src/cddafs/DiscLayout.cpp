// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/DiscLayout.h"

#include "support/AudioDisc.h"

#include <algorithm>

namespace tonearm {

namespace {

// From one session's lead-out to the next one's first track: 90 seconds of lead-out, 60 of lead-in and
// the pause.
constexpr qint64 sessionGap = qint64{90 + 60} * discFramesPerSecond + discPauseFrames;

} // namespace

DiscLayout layoutOfTable(const QList<LayoutTrack> &tracks, qint64 leadout)
{
    const auto lastAudio =
        std::find_if(tracks.rbegin(), tracks.rend(), [](const LayoutTrack &track) { return track.isAudio; });
    const qsizetype dataBehind = lastAudio - tracks.rbegin();
    const qsizetype kept = tracks.size() - dataBehind;
    if (lastAudio == tracks.rend() || dataBehind == 0 || tracks[kept].start - sessionGap <= lastAudio->start)
        return {{{.number = 1, .leadout = leadout, .tracks = tracks}}};
    return {{{.number = 1, .leadout = tracks[kept].start - sessionGap, .tracks = tracks.first(kept)},
             {.number = 2, .leadout = leadout, .tracks = tracks.sliced(kept)}}};
}

QList<AudioTrack> audioTracks(const DiscLayout &layout)
{
    QList<AudioTrack> result;
    for (const LayoutSession &session : layout.sessions) {
        for (qsizetype index = 0; index < session.tracks.size(); ++index) {
            const LayoutTrack &track = session.tracks[index];
            const qint64 end =
                index + 1 < session.tracks.size() ? session.tracks[index + 1].start : session.leadout;
            if (track.isAudio)
                result.append({.number = track.number,
                               .start = track.start,
                               .sectors = std::max<qint64>(end - track.start, 0)});
        }
    }
    return result;
}

} // namespace tonearm
