// SPDX-License-Identifier: GPL-3.0-or-later
// What all audio CDs have in common, and what is agreed between those who show one as a volume and those who
// read the volume.
#pragma once

#include <QLatin1StringView>
#include <QtGlobal>

namespace tonearm {

/// A CD's frames, which are its sectors, in a second.
inline constexpr int discFramesPerSecond = 75;

/// The bytes of sound in a frame: 588 samples of two channels with 16 bits.
inline constexpr qint64 discFrameBytes = 2352;

/// The pause before the first track. Logical sectors count from its end, times on the disc from its start.
inline constexpr qint64 discPauseFrames = 150;

/// How a volume's file for a track without a title is called, behind its number.
inline constexpr QLatin1StringView untitledTrackName("Audio Track");

/// How the files of a volume's tracks end.
inline constexpr QLatin1StringView trackFileEnding(".aiff");

} // namespace tonearm
