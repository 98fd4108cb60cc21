// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/ProminentButton.h"

#include "app/screens/elements/Contrast.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace tonearm {

namespace {

constexpr double cornerRadius = 4;
constexpr double focusRingWidth = 2;
constexpr QSize moreRoom(16, 2);

QColor groundOf(const QStyleOptionButton &option, const QColor &text)
{
    const QColor ground = legibleGround(option.palette.color(QPalette::Active, QPalette::Highlight), text);
    if (option.state & QStyle::State_Sunken)
        return strengthened(strengthened(ground, text), text);
    return option.state & QStyle::State_MouseOver ? strengthened(ground, text) : ground;
}

} // namespace

ProminentButton::ProminentButton(const QString &text, QWidget *parent)
    : QPushButton(text, parent)
{
}

QSize ProminentButton::sizeHint() const
{
    return QPushButton::sizeHint() + moreRoom;
}

// Styles lighten a button's ground by as much as they please, and the text on it isn't legible then.
void ProminentButton::paintEvent(QPaintEvent *event)
{
    if (!isEnabled()) {
        QPushButton::paintEvent(event);
        return;
    }
    QStyleOptionButton option;
    initStyleOption(&option);
    const QColor text = palette().color(QPalette::Active, QPalette::HighlightedText);

    QStylePainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(groundOf(option, text));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), cornerRadius, cornerRadius);
    if (option.state & QStyle::State_HasFocus) {
        painter.setPen(QPen(palette().color(QPalette::WindowText), focusRingWidth));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), cornerRadius, cornerRadius);
    }
    option.palette.setColor(QPalette::ButtonText, text);
    painter.drawControl(QStyle::CE_PushButtonLabel, option);
}

} // namespace tonearm
