// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/StandInTools.h"

#include <QByteArray>

namespace tonearm::test {

/// Stand-ins round the real tools: ffprobe works, ffmpeg does what the test says.
class FFmpegStandIn : public StandInTools
{
public:
    /// Below the line that names the last argument $output; $ffmpeg is the real program.
    explicit FFmpegStandIn(const QByteArray &body);
};

} // namespace tonearm::test
