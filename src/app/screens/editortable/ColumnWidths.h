// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

namespace tonearm {

/// What a column would like of the room that there is.
struct ColumnWish
{
    int minimum = 0;
    /// What it has when there is room for it.
    int ideal = 0;
    /// What it has before any column gets more than it needs, such as for the whole of its title.
    int comfortable = 0;
    /// Whether it takes a share of what is left then.
    bool isStretching = false;
};

/// The widths of columns side by side. They fill the room exactly, unless it is too small even for the
/// minimums, or nobody wants what is left.
QList<int> columnWidths(const QList<ColumnWish> &wishes, int room);

} // namespace tonearm
