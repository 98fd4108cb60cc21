// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editortable/EditorHeader.h"

#include "app/screens/editortable/EditorColumns.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyleOptionFocusRect>

#include <algorithm>
#include <numeric>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int keyStep = 10;
constexpr int focusInset = 2;

} // namespace

EditorHeader::EditorHeader(QWidget *parent)
    : QHeaderView(Qt::Horizontal, parent)
{
    setStretchLastSection(false);
    setMinimumSectionSize(0);
    setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    setTextElideMode(Qt::ElideRight);
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QHeaderView::sectionClicked, this, &EditorHeader::columnChosen);
    connect(this, &QHeaderView::sectionResized, this,
            [this](int column, int /*before*/, int width) { takeUserWidth(column, width); });
    walkTo(0);
}

void EditorHeader::setRoom(int room)
{
    m_room = room;
    if (count() > 0)
        setWidths(columnWidths(wishes(), room), 0);
}

QList<ColumnWish> EditorHeader::wishes() const
{
    QList<ColumnWish> wishes;
    for (const EditorColumn &column : editorColumns()) {
        const int index = int(wishes.size());
        const int ideal = m_userWidths.isEmpty() ? column.idealWidth : m_userWidths[index];
        const int title = m_userWidths.isEmpty() ? sectionSizeFromContents(index).width() : 0;
        wishes.append({.minimum = column.minimumWidth,
                       .ideal = ideal,
                       .comfortable = std::max(ideal, title),
                       .isStretching = column.isStretching});
    }
    return wishes;
}

QList<int> EditorHeader::currentWidths() const
{
    QList<int> widths;
    for (int column = 0; column < count(); ++column)
        widths.append(sectionSize(column));
    return widths;
}

void EditorHeader::setWidths(const QList<int> &widths, int firstColumn)
{
    const QScopedValueRollback arranging(m_isArranging, true);
    for (int index = 0; index < widths.size(); ++index)
        resizeSection(firstColumn + index, widths[index]);
}

// The columns behind the resized one share what room is left, starting from what they had at first, so that
// moving to and fro leaves no traces.
void EditorHeader::takeUserWidth(int column, int width)
{
    if (m_isArranging || count() != editorColumns().size())
        return;
    if (m_widthsBefore.isEmpty())
        m_widthsBefore = currentWidths();
    m_userWidths = m_widthsBefore;
    const QList<ColumnWish> all = wishes();
    const int settled = std::max(width, all[column].minimum);
    setWidths({settled}, column);
    m_userWidths[column] = settled;
    const QList<int> widths = currentWidths();
    const int taken = std::accumulate(widths.begin(), widths.begin() + column + 1, 0);
    setWidths(columnWidths(all.mid(column + 1), m_room - taken), column + 1);
}

void EditorHeader::endResizing()
{
    if (m_widthsBefore.isEmpty())
        return;
    m_widthsBefore.clear();
    m_userWidths = currentWidths();
}

void EditorHeader::mouseReleaseEvent(QMouseEvent *event)
{
    QHeaderView::mouseReleaseEvent(event);
    endResizing();
}

void EditorHeader::keyPressEvent(QKeyEvent *event)
{
    const int forward = isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        return handleArrow(event->key() == forward ? 1 : -1, event->modifiers() & Qt::ShiftModifier);
    case Qt::Key_Home:
        return walkTo(0);
    case Qt::Key_End:
        return walkTo(count() - 1);
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT columnChosen(m_focused);
        return;
    default:
        event->ignore();
    }
}

void EditorHeader::handleArrow(int step, bool isResizing)
{
    if (!isResizing)
        return walkTo(std::clamp(m_focused + step, 0, count() - 1));
    takeUserWidth(m_focused, sectionSize(m_focused) + step * keyStep);
    endResizing();
}

// The name says where the keys are.
void EditorHeader::walkTo(int column)
{
    m_focused = column;
    setAccessibleName(u"Sort by "_s + editorColumns()[column].title);
    viewport()->update();
}

void EditorHeader::focusInEvent(QFocusEvent *event)
{
    QHeaderView::focusInEvent(event);
    viewport()->update();
}

void EditorHeader::paintSection(QPainter *painter, const QRect &place, int column) const
{
    painter->save();
    QHeaderView::paintSection(painter, place, column);
    painter->restore();
    if (!hasFocus() || column != m_focused)
        return;
    QStyleOptionFocusRect frame;
    frame.initFrom(this);
    frame.rect = place.adjusted(focusInset, focusInset, -focusInset, -focusInset);
    frame.state |= QStyle::State_KeyboardFocusChange;
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, painter, this);
}

} // namespace tonearm
