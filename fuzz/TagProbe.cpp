// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"

#include "support/Json.h"
#include "tageditor/AudioPackets.h"
#include "tageditor/ProbePayload.h"
#include "tageditor/TagTable.h"

#include <cstdlib>

void tonearm::fuzz::tryBytes(const QByteArray &bytes)
{
    try {
        const ProbePayload payload = ProbePayload::decoded(bytes);
        if (payload.audioStreamCount() > payload.streams.value_or(QList<ProbePayload::Stream>()).size())
            std::abort();
        (void)tagTable(payload);
    } catch (const JsonError &) {
        // As it should be for most bytes.
    }
    for (const qsizetype count : AudioPackets::decoded(bytes).counts())
        if (count < 1)
            std::abort();
}
