// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/IconView.h"

#include "app/screens/elements/AccessibleRole.h"

#include <QPainter>

namespace tonearm {

IconView::IconView(IconName name, Tone tone, QWidget *parent, int side)
    : QWidget(parent)
    , m_name(name)
    , m_tone(tone)
{
    setFixedSize(side, side);
    hideFromAssistiveTechnology(this);
}

void IconView::setIcon(IconName name, Tone tone)
{
    m_name = name;
    m_tone = tone;
    update();
}

void IconView::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    paintIcon(painter, rect(), m_name, toneColour(m_tone, palette(), group));
}

} // namespace tonearm
