// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Widgets.h"

#include <QAccessible>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QTestEventList>
#include <QWheelEvent>

namespace tonearm::test {

namespace {

void setUrls(QMimeData &data, const QList<QUrl> &urls)
{
    if (!urls.isEmpty())
        data.setUrls(urls);
}

bool enter(QWidget &widget, const QMimeData &data)
{
    QDragEnterEvent event(widget.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

void leave(QWidget &widget)
{
    QDragLeaveEvent event;
    QApplication::sendEvent(&widget, &event);
}

} // namespace

QString accessibleNameOf(QWidget &widget)
{
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(&widget);
    return interface ? interface->text(QAccessible::Name) : QString();
}

bool showActive(QWidget &window)
{
    window.show();
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

void type(const QString &text)
{
    QTest::keyClicks(QApplication::focusWidget(), text);
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void click(QWidget &widget)
{
    QTest::mouseClick(&widget, Qt::LeftButton);
}

void turnWheel(QWidget &widget, int steps)
{
    const QPointF centre = widget.rect().center();
    QWheelEvent event(centre, widget.mapToGlobal(centre), QPoint(),
                      QPoint(0, -steps * QWheelEvent::DefaultDeltasPerStep), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    // Only the window system's own events are passed on to the widgets around.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&widget, &event);
}

bool dragOver(QWidget &widget, const QList<QUrl> &urls)
{
    QMimeData data;
    setUrls(data, urls);
    return enter(widget, data);
}

void dragAway(QWidget &widget, const QList<QUrl> &urls)
{
    if (dragOver(widget, urls))
        leave(widget);
}

bool drop(QWidget &widget, const QList<QUrl> &urls)
{
    QMimeData data;
    setUrls(data, urls);
    if (!enter(widget, data))
        return false;
    QDropEvent event(widget.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

} // namespace tonearm::test
