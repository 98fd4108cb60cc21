// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Divider.h"

#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/Colours.h"

#include <QPainter>

namespace tonearm {

namespace {

constexpr double opacity = 0.18;

} // namespace

Divider::Divider(QWidget *parent)
    : QWidget(parent)
{
    setFixedHeight(1);
    setAccessibleRole(this, QAccessible::Separator);
}

void Divider::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), faded(toneColour(Tone::text, palette()), opacity));
}

} // namespace tonearm
