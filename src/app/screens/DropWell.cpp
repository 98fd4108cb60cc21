// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/DropWell.h"

#include "app/screens/AccessibleRole.h"
#include "app/screens/ElidedLabel.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QPainter>
#include <QVBoxLayout>

#include <optional>

namespace tonearm {

namespace {

constexpr double cornerRadius = 8;
constexpr int iconSide = 28;
constexpr int padding = 12;
constexpr int gap = 6;
constexpr double restingFill = 0.04;
constexpr double restingBorder = 0.25;
constexpr double targetedFill = 0.16;

std::optional<QUrl> firstFile(const QMimeData *data)
{
    const QList<QUrl> urls = data->urls();
    if (urls.isEmpty() || !urls.first().isLocalFile())
        return std::nullopt;
    return urls.first();
}

} // namespace

DropWell::DropWell(const QString &accessibleName, OnDrop onDrop, QWidget *parent, int height)
    : QWidget(parent)
    , m_onDrop(std::move(onDrop))
    , m_label(new ElidedLabel(Qt::ElideMiddle, this))
{
    setAccessibleName(accessibleName);
    setAccessibleRole(this, QAccessible::Grouping);
    setAcceptDrops(true);
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

void DropWell::dragEnterEvent(QDragEnterEvent *event)
{
    if (!firstFile(event->mimeData()))
        return event->ignore();
    event->acceptProposedAction();
    setTargeted(true);
}

void DropWell::dragLeaveEvent(QDragLeaveEvent * /*event*/)
{
    setTargeted(false);
}

void DropWell::dropEvent(QDropEvent *event)
{
    setTargeted(false);
    const std::optional<QUrl> file = firstFile(event->mimeData());
    if (file && m_onDrop(*file))
        event->acceptProposedAction();
    else
        event->ignore();
}

void DropWell::paintEvent(QPaintEvent * /*event*/)
{
    const QColor text =
        toneColour(Tone::text, palette(), isEnabled() ? QPalette::Active : QPalette::Disabled);
    const QColor highlight = palette().color(QPalette::Highlight);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double border = m_targeted ? 2 : 1;
    painter.setPen(QPen(m_targeted ? highlight : faded(text, restingBorder), border));
    painter.setBrush(m_targeted ? faded(highlight, targetedFill) : faded(text, restingFill));
    const double inset = border / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), cornerRadius,
                            cornerRadius);
    const QRect place((width() - iconSide) / 2, m_label->y() - gap - iconSide, iconSide, iconSide);
    paintIcon(painter, place, m_icon, m_targeted ? highlight : toneColour(Tone::secondary, palette()));
}

void DropWell::setTargeted(bool targeted)
{
    m_targeted = targeted;
    update();
}

} // namespace tonearm
