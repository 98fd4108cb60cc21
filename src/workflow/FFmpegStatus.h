// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/FFmpegInstallation.h"

#include <QString>

#include <variant>

namespace tonearm {

/// ffmpeg or ffprobe can't be used; the text says why and what to do.
struct FFmpegMissing
{
    QString text;

    bool operator==(const FFmpegMissing &) const = default;
};

/// Nothing is known yet; the state at start only.
struct FFmpegChecking
{
    bool operator==(const FFmpegChecking &) const = default;
};

/// What is known of ffmpeg and ffprobe.
using FFmpegStatus = std::variant<FFmpegInstallation, FFmpegMissing, FFmpegChecking>;

inline bool isMissing(const FFmpegStatus &status)
{
    return std::holds_alternative<FFmpegMissing>(status);
}

} // namespace tonearm
