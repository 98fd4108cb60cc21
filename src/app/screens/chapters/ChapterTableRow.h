// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/records/RipVerification.h"

#include <QString>

#include <optional>

namespace tonearm {

/// What is being done with the preview of a chapter.
enum class ChapterPreviewState { silent, preparing, playing };

/// What one row of the chapter table shows.
struct ChapterTableRow
{
    QString number = {};
    QString sourceTitle = {};
    QString length = {};
    QString songTitle = {};
    ChapterPreviewState preview = ChapterPreviewState::silent;
    bool canPreview = false;
    std::optional<RipVerification> verification = {};

    bool operator==(const ChapterTableRow &) const = default;
};

} // namespace tonearm
