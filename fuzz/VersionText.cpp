// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"

#include "tools/VersionText.h"

void tonearm::fuzz::tryBytes(const QByteArray &bytes)
{
    (void)ffmpegVersionSummary(bytes);
    (void)cdParanoiaVersionSummary(bytes);
}
