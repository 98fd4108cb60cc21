// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/aboutwindows/LinkButton.h"

#include "app/screens/elements/Colours.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace tonearm {

namespace {

// Room for the frame that shows the focus.
constexpr QMargins margins(1, 1, 1, 1);

} // namespace

LinkButton::LinkButton(const QString &text, QWidget *parent)
    : QAbstractButton(parent)
{
    setText(text);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize LinkButton::sizeHint() const
{
    return fontMetrics().size(Qt::TextSingleLine, text()).grownBy(margins);
}

void LinkButton::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    QFont underlined = font();
    underlined.setUnderline(true);
    painter.setFont(underlined);
    const Tone tone = isDown() ? Tone::text : Tone::information;
    painter.setPen(toneColour(tone, palette(), isEnabled() ? QPalette::Active : QPalette::Disabled));
    painter.drawText(rect().marginsRemoved(margins), Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine,
                     text());
    if (!hasFocus())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void LinkButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace tonearm
