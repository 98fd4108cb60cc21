// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/Colours.h"

#include <QFont>

class QLabel;

namespace tonearm {

/// The few ways in which texts differ from the body text around them.
enum class TextStyle {
    /// Like the text around.
    body,
    /// Heads a section.
    heading,
    /// A row's or a block's first line.
    emphasised,
    /// Explains, in the body's size.
    secondary,
    /// Between the body's size and the next smaller one.
    callout,
    /// Explains, in that size.
    calloutSecondary,
    /// A size smaller.
    small,
    /// Explains, a size smaller.
    smallSecondary,
};

/// The font of a style beside text in another, for what isn't a label.
QFont fontOf(TextStyle style, const QFont &around);

/// Shows a label in a style, and keeps it so when the font or the palette around it changes. To be
/// called once for a label.
void applyTextStyle(QLabel *label, TextStyle style);

/// The same with a colour that the style alone doesn't have.
void applyTextStyle(QLabel *label, TextStyle style, Tone tone);

} // namespace tonearm
