// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"

#include "encoding/ProbeReply.h"
#include "support/Json.h"

#include <cmath>
#include <cstdlib>

void tonearm::fuzz::tryBytes(const QByteArray &bytes)
{
    try {
        for (const ChapterInfo &chapter : readProbeReply(bytes).chapters)
            if (!std::isfinite(chapter.startSeconds) || !std::isfinite(chapter.endSeconds))
                std::abort();
    } catch (const JsonError &) {
        // As it should be for most bytes.
    }
}
