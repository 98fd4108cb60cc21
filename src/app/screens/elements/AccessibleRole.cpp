// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace tonearm {

namespace {

constexpr auto roleProperty = "tonearmAccessibleRole";

// Qt asks it once for each class that a widget derives from; the first answer counts.
QAccessibleInterface *interfaceOf(const QString & /*className*/, QObject *object)
{
    QWidget *widget = qobject_cast<QWidget *>(object);
    const QVariant role = widget ? widget->property(roleProperty) : QVariant();
    if (!role.isValid())
        return nullptr;
    return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
}

} // namespace

void setAccessibleRole(QWidget *widget, QAccessible::Role role)
{
    // Qt keeps each factory once, however often it is installed.
    QAccessible::installFactory(interfaceOf);
    widget->setProperty(roleProperty, static_cast<int>(role));
    // Qt may have described the widget already, as it does when the name is set.
    if (QAccessibleInterface *earlier = QAccessible::queryAccessibleInterface(widget))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(earlier));
}

} // namespace tonearm
