// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/WindowFront.h"

#include <QApplication>

namespace tonearm {

bool isInFront(const QWidget &window)
{
    for (const QWidget *widget = QApplication::activeWindow(); widget; widget = widget->parentWidget())
        if (widget == &window)
            return true;
    return false;
}

void bringToFront(QWidget &window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace tonearm
