// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace tonearm {

namespace {

constexpr auto roleProperty = "tonearmAccessibleRole";
constexpr auto ornamentProperty = "tonearmOrnament";

class Ornament final : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.invisible = true;
        return state;
    }

    int childCount() const override { return 0; }

    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
};

// Qt asks it once for each class that a widget derives from; the first answer counts.
QAccessibleInterface *interfaceOf(const QString & /*className*/, QObject *object)
{
    QWidget *widget = qobject_cast<QWidget *>(object);
    if (!widget)
        return nullptr;
    if (widget->property(ornamentProperty).toBool())
        return new Ornament(widget, QAccessible::Graphic);
    const QVariant role = widget->property(roleProperty);
    if (!role.isValid())
        return nullptr;
    return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
}

// Qt may have described the widget already, as it does when the name is set.
void describeAnew(QWidget *widget)
{
    // Qt keeps each factory once, however often it is installed.
    QAccessible::installFactory(interfaceOf);
    if (QAccessibleInterface *earlier = QAccessible::queryAccessibleInterface(widget))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(earlier));
}

bool isOrnament(const QWidget &widget)
{
    return widget.property(ornamentProperty).toBool();
}

} // namespace

void setAccessibleRole(QWidget *widget, QAccessible::Role role)
{
    if (!isOrnament(*widget) && widget->property(roleProperty) == static_cast<int>(role))
        return;
    widget->setProperty(ornamentProperty, false);
    widget->setProperty(roleProperty, static_cast<int>(role));
    describeAnew(widget);
}

void hideFromAssistiveTechnology(QWidget *widget)
{
    if (isOrnament(*widget))
        return;
    widget->setProperty(ornamentProperty, true);
    describeAnew(widget);
}

} // namespace tonearm
