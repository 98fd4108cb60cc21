// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPalette>

namespace tonearm {

/// What a coloured thing says. The colour itself comes from the palette it is shown in.
enum class Tone {
    text,
    secondary,
    success,
    warning,
    information,
    /// On a ground in the accent colour.
    onAccent,
};

/// Whether light text stands on a dark ground.
bool isDark(const QPalette &palette);

/// The opaque or, for a disabled widget, paler colour of a tone. Legible on the palette's window
/// and text box grounds, light and dark.
QColor toneColour(Tone tone, const QPalette &palette, QPalette::ColorGroup group = QPalette::Active);

/// The same colour, let through by so much of its opacity, 0 to 1.
QColor faded(QColor colour, double opacity);

} // namespace tonearm
