// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Announcement.h"

#include "app/screens/elements/AccessibleRole.h"

#include <QAccessible>
#include <QWidget>

namespace tonearm {

void makeAnnouncer(QWidget *widget)
{
    setAccessibleRole(widget, QAccessible::Notification);
}

void announce(QWidget *widget)
{
    if (!widget->isVisible())
        return;
    // A screen reader on Linux reads a notification out when it comes into view, on other systems when
    // it is an alert.
    for (const QAccessible::Event type : {QAccessible::ObjectShow, QAccessible::Alert}) {
        QAccessibleEvent event(widget, type);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace tonearm
