// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/menus/FocusedText.h"

#include <QApplication>
#include <QFocusEvent>
#include <QMenu>
#include <QMenuBar>

namespace tonearm {

FocusedText::FocusedText(QWidget *window)
    : m_window(window)
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { follow(now); });
    follow(window->focusWidget());
}

void FocusedText::follow(QWidget *focused)
{
    // Another window, or a menu of this one: the box has the focus again afterwards.
    if (!focused || focused->window() != m_window || qobject_cast<QMenuBar *>(focused))
        return;
    auto *box = qobject_cast<QLineEdit *>(focused);
    if (box == m_box)
        return;
    if (m_box) {
        m_box->removeEventFilter(this);
        m_box->disconnect(this);
    }
    m_box = box;
    if (box) {
        box->installEventFilter(this);
        connect(box, &QLineEdit::textChanged, this, &FocusedText::changed);
        connect(box, &QLineEdit::selectionChanged, this, &FocusedText::changed);
        // It is told too early for the pointer to be null by itself.
        connect(box, &QObject::destroyed, this, [this] {
            m_box = nullptr;
            Q_EMIT changed();
        });
    }
    Q_EMIT changed();
}

bool FocusedText::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::FocusOut ||
        static_cast<QFocusEvent *>(event)->reason() != Qt::MenuBarFocusReason)
        return false;
    // When a menu is opened by its key, the bar takes the focus, and a box drops its selection, which is
    // what the menu is to be about. When a menu is opened by the mouse, the box keeps it.
    QFocusEvent asByMouse(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(watched, &asByMouse);
    return true;
}

} // namespace tonearm
