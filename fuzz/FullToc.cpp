// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"

#include "cddafs/FullToc.h"

#include <cstdlib>

// Whatever a drive answers: its tracks have numbers that a disc can have, and a length.
void tonearm::fuzz::tryBytes(const QByteArray &bytes)
{
    const std::optional<DiscLayout> layout = readFullToc(bytes);
    if (!layout)
        return;
    for (const AudioTrack &track : audioTracks(*layout))
        if (track.number < 1 || track.number > 99 || track.sectors < 1)
            std::abort();
}
