// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QPalette>
#include <QString>

class QWidget;

namespace tonearm::test {

QPalette lightPalette();
QPalette darkPalette();

/// Gives the whole application a palette for as long as it lives.
class PaletteScope
{
public:
    explicit PaletteScope(const QPalette &palette);
    ~PaletteScope();

    PaletteScope(const PaletteScope &) = delete;
    PaletteScope &operator=(const PaletteScope &) = delete;

private:
    QPalette m_before;
};

/// A picture of a widget, on the ground of its window.
QImage rendered(QWidget &widget, double devicePixelRatio = 1);

/// Writes such a picture for people to look at, as screens/<name>.png in the build folder; returns its
/// path, or nothing if it couldn't be written.
QString renderToPng(QWidget &widget, const QString &name, double devicePixelRatio = 1);

} // namespace tonearm::test
