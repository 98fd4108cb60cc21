// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/RoundedGround.h"

#include <QPainter>

namespace tonearm {

void paintRoundedGround(QPainter &painter, const QRect &area, const RoundedGround &ground)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(ground.edge);
    painter.setBrush(ground.fill);
    // So that the edge covers whole pixels.
    const double inset = ground.edge.widthF() / 2;
    painter.drawRoundedRect(QRectF(area).adjusted(inset, inset, -inset, -inset), ground.cornerRadius,
                            ground.cornerRadius);
}

} // namespace tonearm
