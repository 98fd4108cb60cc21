// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editortable/WrappingLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace tonearm {

WrappingLayout::WrappingLayout(int gap, int lineGap, QWidget *parent)
    : QLayout(parent)
    , m_gap(gap)
    , m_lineGap(lineGap)
{
    setContentsMargins(0, 0, 0, 0);
}

WrappingLayout::~WrappingLayout() = default;

void WrappingLayout::addItem(QLayoutItem *item)
{
    m_items.emplace_back(item);
}

int WrappingLayout::count() const
{
    return int(m_items.size());
}

QLayoutItem *WrappingLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[index].get() : nullptr;
}

QLayoutItem *WrappingLayout::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem *taken = m_items[index].release();
    m_items.erase(m_items.begin() + index);
    return taken;
}

Qt::Orientations WrappingLayout::expandingDirections() const
{
    return {};
}

bool WrappingLayout::hasHeightForWidth() const
{
    return true;
}

int WrappingLayout::heightForWidth(int width) const
{
    return arrange(QRect(0, 0, width, 0), false);
}

// All in one line.
QSize WrappingLayout::sizeHint() const
{
    QSize size(0, 0);
    for (const auto &item : m_items)
        if (!item->isEmpty())
            size = QSize(size.width() + item->sizeHint().width() + (size.width() > 0 ? m_gap : 0),
                         std::max(size.height(), item->sizeHint().height()));
    return size;
}

QSize WrappingLayout::minimumSize() const
{
    QSize size(0, 0);
    for (const auto &item : m_items)
        if (!item->isEmpty())
            size = size.expandedTo(item->minimumSize());
    return size;
}

void WrappingLayout::setGeometry(const QRect &place)
{
    QLayout::setGeometry(place);
    arrange(place, true);
}

// Returns the height that it takes.
int WrappingLayout::arrange(const QRect &place, bool isForReal) const
{
    const Qt::LayoutDirection direction = parentWidget()->layoutDirection();
    QPoint next = place.topLeft();
    int lineHeight = 0;
    for (const auto &item : m_items) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint();
        if (next.x() > place.left() && next.x() + size.width() > place.left() + place.width()) {
            next = QPoint(place.left(), next.y() + lineHeight + m_lineGap);
            lineHeight = 0;
        }
        if (isForReal)
            item->setGeometry(QStyle::visualRect(direction, place, QRect(next, size)));
        next.rx() += size.width() + m_gap;
        lineHeight = std::max(lineHeight, size.height());
    }
    return next.y() + lineHeight - place.top();
}

} // namespace tonearm
