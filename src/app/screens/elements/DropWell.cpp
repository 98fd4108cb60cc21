// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/DropWell.h"

#include "app/screens/elements/ElidedLabel.h"

#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace tonearm {

namespace {

constexpr int iconSide = 28;
constexpr int padding = 12;
constexpr int gap = 6;

} // namespace

DropWell::DropWell(const QString &accessibleName, OnDrop onDrop, QWidget *parent, int height)
    : FileDropArea(accessibleName, std::move(onDrop), parent)
    , m_label(new ElidedLabel(Qt::ElideMiddle, this))
{
    setFixedHeight(height);
    // However long a name, wells side by side share their room evenly.
    m_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(padding, 0, padding, 0);
    column->setSpacing(gap);
    column->addStretch();
    column->addSpacing(iconSide);
    column->addWidget(m_label);
    column->addStretch();
}

void DropWell::setIcon(IconName name)
{
    m_icon = name;
    update();
}

QString DropWell::label() const
{
    return m_label->text();
}

void DropWell::setLabel(const QString &label)
{
    m_label->setText(label);
}

void DropWell::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    paintGround(painter);
    const QRect place((width() - iconSide) / 2, m_label->y() - gap - iconSide, iconSide, iconSide);
    const QColor colour =
        isTargeted() ? palette().color(QPalette::Highlight) : toneColour(Tone::secondary, palette());
    paintIcon(painter, place, m_icon, colour);
}

} // namespace tonearm
