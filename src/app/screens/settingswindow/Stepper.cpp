// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/settingswindow/Stepper.h"

#include <QToolButton>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize buttonSize(20, 13);

} // namespace

Stepper::Stepper(const QString &name, QWidget *parent)
    : QWidget(parent)
    , m_up(makeButton(Qt::UpArrow, u"Increase "_s + name, 1))
    , m_down(makeButton(Qt::DownArrow, u"Decrease "_s + name, -1))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_up);
    column->addWidget(m_down);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QToolButton *Stepper::makeButton(Qt::ArrowType arrow, const QString &name, int steps)
{
    auto *button = new QToolButton(this);
    button->setArrowType(arrow);
    button->setAccessibleName(name);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setFixedSize(buttonSize);
    connect(button, &QToolButton::clicked, this, [this, steps] { Q_EMIT stepped(steps); });
    return button;
}

void Stepper::setCanGoUp(bool can)
{
    m_up->setEnabled(can);
}

void Stepper::setCanGoDown(bool can)
{
    m_down->setEnabled(can);
}

} // namespace tonearm
