// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

namespace tonearm {

/// How well two opaque colours can be told apart by their brightness, from 1 to 21.
double contrast(const QColor &one, const QColor &other);

/// From what contrast on a text of ordinary size can be read by people with weak sight.
inline constexpr double legibleContrast = 4.5;

/// A ground like the one wanted on which a text of that colour can be read: the wanted one itself, or
/// as much darker, or brighter below a dark text, as it takes.
QColor legibleGround(const QColor &wanted, const QColor &text);

/// A ground that is a step darker, or brighter below a dark text.
QColor strengthened(const QColor &ground, const QColor &text);

} // namespace tonearm
