// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/records/AudioStreamInfo.h"
#include "workflow/records/ChapterInfo.h"

#include <QList>

#include <optional>

namespace tonearm {

/// What is known of a source file before anything is done with it.
struct SourceInspection
{
    /// In the order and with the times that the file gives: they may overlap, leave gaps or run backwards.
    QList<ChapterInfo> chapters = {};
    /// The first audio stream, if the file has one.
    std::optional<AudioStreamInfo> audioStream = {};

    bool operator==(const SourceInspection &) const = default;
};

} // namespace tonearm
