// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/records/ChapterInfo.h"

#include "support/Numbers.h"

#include <algorithm>
#include <cmath>

namespace tonearm {

namespace {

// Foreign timestamps may be anything a double can hold, infinity too; nothing longer than this is shown.
constexpr double longestSeconds = 1e15;

double wholeSeconds(double seconds)
{
    if (!(seconds > 0))
        return 0;
    return std::round(std::min(seconds, longestSeconds));
}

} // namespace

QString ChapterInfo::durationText() const
{
    return minutesAndSeconds(wholeSeconds(endSeconds - startSeconds));
}

} // namespace tonearm
