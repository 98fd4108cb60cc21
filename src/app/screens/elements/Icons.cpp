// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Icons.h"

#include "app/screens/elements/PaintedIconEngine.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

// Outside of any namespace, as the macro asks. Naming the resource here links it into every program
// that draws an icon.
static void linkIconResource() // NOLINT(misc-use-anonymous-namespace): the macro would look there
{
    Q_INIT_RESOURCE(icons);
}

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QString fileStem(IconName name)
{
    switch (name) {
    case IconName::warning:
        return u"warning"_s;
    case IconName::warningOutline:
        return u"warning-outline"_s;
    case IconName::success:
        return u"success"_s;
    case IconName::inputFile:
        return u"input-file"_s;
    case IconName::disc:
        return u"disc"_s;
    case IconName::folder:
        return u"folder"_s;
    case IconName::folderAdd:
        return u"folder-add"_s;
    case IconName::folderGear:
        return u"folder-gear"_s;
    case IconName::document:
        return u"document"_s;
    case IconName::metadataPage:
        return u"metadata-page"_s;
    case IconName::waveform:
        return u"waveform"_s;
    case IconName::encode:
        return u"encode"_s;
    case IconName::lossy:
        return u"lossy"_s;
    case IconName::list:
        return u"list"_s;
    case IconName::picture:
        return u"picture"_s;
    case IconName::gearWarning:
        return u"gear-warning"_s;
    case IconName::search:
        return u"search"_s;
    case IconName::seal:
        return u"seal"_s;
    case IconName::shield:
        return u"shield"_s;
    case IconName::play:
        return u"play"_s;
    case IconName::stop:
        return u"stop"_s;
    case IconName::cdBadge:
        return u"badge-cd"_s;
    case IconName::hiresBadge:
        return u"badge-hires"_s;
    }
    Q_UNREACHABLE();
}

// The drawing with its one colour put in.
QByteArray drawing(IconName name, const QColor &colour)
{
    linkIconResource();
    QFile file(u":/tonearm/icons/"_s + fileStem(name) + u".svg"_s);
    if (!file.open(QFile::ReadOnly))
        qFatal("The drawing %s is not in the program.", qPrintable(file.fileName()));
    return file.readAll().replace("currentColor", colour.name(QColor::HexRgb).toLatin1());
}

// A square drawing of `side` device pixels. The colour is opaque here, since strokes that cross would
// show where they do.
QPixmap rendered(IconName name, const QColor &colour, int side)
{
    const QString key = u"tonearm/%1/%2/%3"_s.arg(fileStem(name), colour.name(QColor::HexRgb)).arg(side);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = QPixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(drawing(name, colour)).render(&painter);
    painter.end();
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

class SymbolEngine final : public PaintedIconEngine
{
public:
    SymbolEngine(IconName name, Tone tone)
        : m_name(name)
        , m_tone(tone)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        paintIcon(*painter, rect, m_name, colour(mode));
    }

    QIconEngine *clone() const override { return new SymbolEngine(m_name, m_tone); }

private:
    QColor colour(QIcon::Mode mode) const
    {
        const QPalette palette = QGuiApplication::palette();
        if (mode == QIcon::Selected)
            return palette.color(QPalette::HighlightedText);
        return toneColour(m_tone, palette, mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active);
    }

    IconName m_name;
    Tone m_tone;
};

} // namespace

void paintIcon(QPainter &painter, const QRectF &area, IconName name, const QColor &colour)
{
    const double side = qMin(area.width(), area.height());
    QRectF square(0, 0, side, side);
    square.moveCenter(area.center());
    // Off the device's pixels the drawing would blur.
    const QTransform toDevice = painter.deviceTransform();
    const double scale = toDevice.m11();
    const QPointF corner = toDevice.inverted().map(QPointF(toDevice.map(square.topLeft()).toPoint()));
    QPixmap pixmap = rendered(name, colour, qMax(1, qRound(side * scale)));
    pixmap.setDevicePixelRatio(scale);
    const double opacity = painter.opacity();
    painter.setOpacity(opacity * colour.alphaF());
    painter.drawPixmap(corner, pixmap);
    painter.setOpacity(opacity);
}

QIcon icon(IconName name, Tone tone)
{
    return QIcon(new SymbolEngine(name, tone));
}

} // namespace tonearm
