// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/Colours.h"

#include <QIcon>
#include <QRectF>

class QPainter;

namespace tonearm {

/// The program's own drawings, by what they mean.
enum class IconName {
    /// Filled, for what needs attention.
    warning,
    /// Outlined, for a remark.
    warningOutline,
    success,
    inputFile,
    disc,
    folder,
    folderAdd,
    folderGear,
    document,
    metadataPage,
    waveform,
    encode,
    lossy,
    list,
    picture,
    gearWarning,
    search,
    seal,
    shield,
    play,
    stop,
    cdBadge,
    hiresBadge,
};

/// Draws an icon in one colour into the largest square in the middle of `area`, as sharp as the
/// painter's device allows.
void paintIcon(QPainter &painter, const QRectF &area, IconName name, const QColor &colour);

/// The icon for a button, an action or a window. It is drawn anew for each size, scale factor, state
/// and application palette, so one made in a light setting is right in a dark one.
QIcon icon(IconName name, Tone tone = Tone::text);

} // namespace tonearm
