// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Spinner.h"

#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/Colours.h"
#include "app/screens/elements/Motion.h"

#include <QPainter>
#include <QTimerEvent>

#include <chrono>

namespace tonearm {

using namespace std::chrono_literals;

namespace {

constexpr int spokes = 8;
constexpr double fullTurn = 360.0;
constexpr double faintest = 0.2;
// Of half the side.
constexpr double spokeWidth = 0.22;
constexpr double hub = 0.45;

} // namespace

Spinner::Spinner(QWidget *parent, int side)
    : QWidget(parent)
{
    setFixedSize(side, side);
    setAccessibleRole(this, QAccessible::Animation);
}

void Spinner::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (wantsMotion(this))
        m_timer.start(static_cast<int>(std::chrono::milliseconds(1s).count()) / spokes, this);
}

void Spinner::hideEvent(QHideEvent *event)
{
    m_timer.stop();
    QWidget::hideEvent(event);
}

void Spinner::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_timer.timerId())
        return QWidget::timerEvent(event);
    m_step = (m_step + 1) % spokes;
    update();
}

void Spinner::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(width() / 2.0, height() / 2.0);
    painter.rotate(m_step * fullTurn / spokes);
    const double radius = qMin(width(), height()) / 2.0;
    const double pen = radius * spokeWidth;
    const QColor colour = toneColour(Tone::text, palette());
    for (int spoke = 0; spoke < spokes; ++spoke) {
        // The spoke ahead is the darkest, and each behind it is paler.
        const double strength = faintest + (1 - faintest) * (spokes - 1 - spoke) / (spokes - 1);
        painter.setPen(QPen(faded(colour, strength), pen, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(0, -radius * hub), QPointF(0, -radius + pen / 2));
        painter.rotate(-fullTurn / spokes);
    }
}

} // namespace tonearm
