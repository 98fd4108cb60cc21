// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/Icons.h"
#include "workflow/records/AudioStreamInfo.h"

#include <QString>

namespace tonearm {

/// How a source's quality shows in the window.
struct AudioQualityMark
{
    IconName icon;
    Tone tone;
    /// What a screen reader says in place of the icon.
    QString word;
};

AudioQualityMark audioQualityMark(const AudioStreamInfo &audio);

} // namespace tonearm
