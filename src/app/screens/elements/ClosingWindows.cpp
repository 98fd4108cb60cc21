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

bool closeOtherWindows(QWidget &kept)
{
    QList<QPointer<QWidget>> others;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window != &kept && isOpenWindow(*window))
            others.append(window);
    }
    bool isAnyLeft = false;
    for (const QPointer<QWidget> &window : others) {
        if (window && !window->close())
            isAnyLeft = true;
    }
    return !isAnyLeft;
}

void closeAllWindows(QWidget &last)
{
    if (closeOtherWindows(last))
        last.close();
}

} // namespace tonearm
