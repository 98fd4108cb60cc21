// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/PaintedIconEngine.h"

#include <QPainter>

namespace tonearm {

QPixmap PaintedIconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, pixmap.rect(), mode, state);
    return pixmap;
}

} // namespace tonearm
