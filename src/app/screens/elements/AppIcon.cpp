// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/AppIcon.h"

#include "app/screens/elements/PaintedIconEngine.h"

#include <QPainter>
#include <QSvgRenderer>

// Outside of any namespace, as the macro asks.
static void linkAppResource() // NOLINT(misc-use-anonymous-namespace): the macro would look there
{
    Q_INIT_RESOURCE(app);
}

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

class AppIconEngine final : public PaintedIconEngine
{
public:
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        const int side = qMin(rect.width(), rect.height());
        QRectF square(0, 0, side, side);
        square.moveCenter(QRectF(rect).center());
        QSvgRenderer(u":/tonearm/app/tonearm.svg"_s).render(painter, square);
    }

    // What is handed to the window system, from a list entry to an overview of windows.
    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        QList<QSize> sizes;
        for (const int side : {16, 24, 32, 48, 64, 128, 256})
            sizes.append(QSize(side, side));
        return sizes;
    }

    QIconEngine *clone() const override { return new AppIconEngine; }
};

} // namespace

QIcon applicationIcon()
{
    linkAppResource();
    return QIcon(new AppIconEngine);
}

} // namespace tonearm
