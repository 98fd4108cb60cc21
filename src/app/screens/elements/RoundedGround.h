// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBrush>
#include <QPen>
#include <QRect>

class QPainter;

namespace tonearm {

/// How a rounded ground looks.
struct RoundedGround
{
    QPen edge;
    QBrush fill = {};
    double cornerRadius = 8;
};

/// Paints a ground as large as `area`, its edge within that.
void paintRoundedGround(QPainter &painter, const QRect &area, const RoundedGround &ground);

} // namespace tonearm
