// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/records/ChapterInfo.h"

#include "support/Numbers.h"

#include <algorithm>
#include <cmath>

namespace tonearm {

namespace {

// Foreign timestamps may be anything a double can hold; beyond this a conversion would be undefined.
constexpr double longestSeconds = 1e15;

qint64 wholeSeconds(double seconds)
{
    if (!(seconds > 0))
        return 0;
    return std::llround(std::min(seconds, longestSeconds));
}

} // namespace

QString ChapterInfo::durationText() const
{
    const qint64 seconds = wholeSeconds(endSeconds - startSeconds);
    return QString::number(seconds / 60) + u':' + padded(seconds % 60, 2);
}

} // namespace tonearm
