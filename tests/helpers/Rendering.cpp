// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Rendering.h"

#include <QApplication>
#include <QDir>
#include <QWidget>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

struct Grounds
{
    QRgb text;
    QRgb window;
    QRgb base;
    QRgb button;
    QRgb highlight;
    QRgb disabled;
};

QPalette paletteOf(const Grounds &grounds)
{
    QPalette palette(QColor::fromRgb(grounds.button), QColor::fromRgb(grounds.window));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, QColor::fromRgb(grounds.text));
        palette.setColor(QPalette::Disabled, role, QColor::fromRgb(grounds.disabled));
    }
    QColor placeholder = QColor::fromRgb(grounds.text);
    placeholder.setAlphaF(0.5F);
    palette.setColor(QPalette::PlaceholderText, placeholder);
    palette.setColor(QPalette::Base, QColor::fromRgb(grounds.base));
    palette.setColor(QPalette::Highlight, QColor::fromRgb(grounds.highlight));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

} // namespace

QPalette lightPalette()
{
    return paletteOf({.text = 0x1b1b1b,
                      .window = 0xf3f3f3,
                      .base = 0xffffff,
                      .button = 0xececec,
                      .highlight = 0x2f6fd0,
                      .disabled = 0x9a9a9a});
}

QPalette darkPalette()
{
    return paletteOf({.text = 0xededed,
                      .window = 0x2a2a2c,
                      .base = 0x1e1e20,
                      .button = 0x3a3a3d,
                      .highlight = 0x3f7fe0,
                      .disabled = 0x7c7c7c});
}

PaletteScope::PaletteScope(const QPalette &palette)
    : m_before(QApplication::palette())
{
    QApplication::setPalette(palette);
    // The widgets are told by an event.
    QCoreApplication::processEvents();
}

PaletteScope::~PaletteScope()
{
    QApplication::setPalette(m_before);
    QCoreApplication::processEvents();
}

QImage rendered(QWidget &widget, double devicePixelRatio)
{
    widget.ensurePolished();
    QImage image(widget.size() * devicePixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(widget.palette().color(QPalette::Window));
    widget.render(&image);
    return image;
}

QString renderToPng(QWidget &widget, const QString &name, double devicePixelRatio)
{
    const QDir folder(QCoreApplication::applicationDirPath() + u"/../screens"_s);
    QString path = QDir::cleanPath(folder.filePath(name + u".png"_s));
    if (!folder.mkpath(u"."_s) || !rendered(widget, devicePixelRatio).save(path))
        return {};
    return path;
}

} // namespace tonearm::test
