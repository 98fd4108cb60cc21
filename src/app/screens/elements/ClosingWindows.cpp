// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/ClosingWindows.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

namespace tonearm {

namespace {

// Dialogs go with the window that they belong to.
bool isOpenWindow(const QWidget &widget)
{
    const Qt::WindowType type = widget.windowType();
    return widget.isVisible() && !widget.parentWidget() && (type == Qt::Window || type == Qt::Dialog);
}

} // namespace

void closeAllWindows(QWidget &last)
{
    QList<QPointer<QWidget>> others;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window != &last && isOpenWindow(*window))
            others.append(window);
    }
    bool isAnyLeft = false;
    for (const QPointer<QWidget> &window : others) {
        if (window && !window->close())
            isAnyLeft = true;
    }
    if (!isAnyLeft)
        last.close();
}

} // namespace tonearm
