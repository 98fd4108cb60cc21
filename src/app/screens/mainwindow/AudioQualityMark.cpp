// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/AudioQualityMark.h"

namespace tonearm {

using namespace Qt::StringLiterals;

AudioQualityMark audioQualityMark(const AudioStreamInfo &audio)
{
    switch (audio.quality()) {
    case AudioQuality::cd:
        return {IconName::cdBadge, Tone::text, u"CD quality"_s};
    case AudioQuality::highResolution:
        return {IconName::hiresBadge, Tone::text, u"High resolution"_s};
    case AudioQuality::lossy:
        return {IconName::lossy, Tone::warning, u"Lossy"_s};
    }
    Q_UNREACHABLE();
}

} // namespace tonearm
