// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/IconLabel.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace tonearm {

namespace {

constexpr int smallestIcon = 16;
constexpr int gap = 6;

} // namespace

IconLabel::IconLabel(IconName name, Tone tone, QWidget *parent)
    : QLabel(parent)
    , m_name(name)
    , m_tone(tone)
{
    // Names of files and releases stand in these texts, and none of them is markup.
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    makeRoom();
}

void IconLabel::setIcon(IconName name, Tone tone)
{
    m_name = name;
    m_tone = tone;
    update();
}

void IconLabel::setSelectable(bool selectable)
{
    setTextInteractionFlags(selectable ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                       : Qt::NoTextInteraction);
}

void IconLabel::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    const int side = iconSide();
    const int firstLine = qMax(side, fontMetrics().height());
    const QRect start(0, contentsRect().top() - roomAbove(), side, firstLine);
    QPainter painter(this);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    paintIcon(painter, QStyle::visualRect(layoutDirection(), rect(), start), m_name,
              toneColour(m_tone, palette(), group));
}

void IconLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::LayoutDirectionChange)
        makeRoom();
}

int IconLabel::iconSide() const
{
    return qMax(smallestIcon, fontMetrics().ascent());
}

// Above the first line, for an icon that is higher than that.
int IconLabel::roomAbove() const
{
    return qMax(0, (iconSide() - fontMetrics().height() + 1) / 2);
}

void IconLabel::makeRoom()
{
    const int room = iconSide() + gap;
    const int above = roomAbove();
    // At the icon's side, whichever way the text itself runs.
    setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignAbsolute |
                 Qt::AlignTop);
    if (layoutDirection() == Qt::RightToLeft)
        setContentsMargins(0, above, room, above);
    else
        setContentsMargins(room, above, 0, above);
    setMinimumHeight(iconSide());
}

} // namespace tonearm
