// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// What one row of the chapter table shows.
struct ChapterTableRow
{
    QString number;
    QString sourceTitle;
    QString length;
    QString songTitle;

    bool operator==(const ChapterTableRow &) const = default;
};

} // namespace tonearm
