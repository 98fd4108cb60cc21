// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editortable/EditorRowList.h"

#include "app/screens/editortable/EditorCellDelegate.h"
#include "app/screens/editortable/EditorColumns.h"
#include "app/screens/editortable/EditorHeader.h"
#include "app/screens/editortable/EditorRows.h"
#include "app/screens/elements/Bind.h"
#include "app/screens/elements/Contrast.h"
#include "tageditor/MetadataEditorModel.h"

#include <QPainter>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Tells that something changed. Without an ==, so that large values aren't compared to find out.
struct Change
{
};

} // namespace

EditorRowList::EditorRowList(MetadataEditorModel &model, QWidget *parent)
    : QTreeView(parent)
    , m_model(model)
    , m_rows(new EditorRows([&model]() -> const TagChangeSet & { return model.changes.value(); }, this))
    , m_header(new EditorHeader(this))
{
    setAccessibleName(u"Files"_s);
    setHeader(m_header);
    // A tree view takes these from its header.
    m_header->setSectionsClickable(true);
    m_header->setSortIndicatorShown(true);
    {
        // Qt tells at once that nothing is selected; the model knows better.
        const QScopedValueRollback following(m_isFollowing, true);
        setModel(m_rows);
    }
    // Otherwise the header would go through all rows for selected ones each time that it is painted.
    m_header->setSelectionModel(new QItemSelectionModel(m_rows, m_header));
    setItemDelegate(new EditorCellDelegate(this));
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollMode(ScrollPerPixel);
    connect(m_header, &EditorHeader::columnChosen, this, &EditorRowList::sortBy);
    bind(
        this,
        [&model] {
            static_cast<void>(model.files.value());
            return Change();
        },
        [this](const Change &) { showFiles(); });
    bind(
        this,
        [&model] {
            static_cast<void>(model.selection.value());
            return Change();
        },
        [this](const Change &) { showSelection(); });
    bind(
        this,
        [&model] {
            static_cast<void>(model.changes.value());
            return Change();
        },
        [this](const Change &) { m_rows->tellOfEdits(); });
    bind(
        this, [&model] { return model.sortOrder.value(); },
        [this](const QList<RowComparator> &) { showSortOrder(); });
}

// Nothing is highlighted while rows move: Qt would follow every one of them.
void EditorRowList::showFiles()
{
    highlight(QBitArray());
    m_rows->setFiles(m_model.files.value());
    showSelection();
}

void EditorRowList::showSelection()
{
    m_selected = selectedInModel();
    if (highlighted() != m_selected)
        highlight(m_selected);
    viewport()->update();
}

QBitArray EditorRowList::selectedInModel() const
{
    QBitArray rows(m_rows->files().size());
    const QList<qsizetype> selected = m_model.selectedPlaces();
    for (const qsizetype row : selected)
        rows.setBit(row);
    return rows;
}

// Rows that can't be selected aren't highlighted, even inside of a highlighted range.
QBitArray EditorRowList::highlighted() const
{
    const QList<EditableAudioFile> &files = m_rows->files();
    QBitArray rows(files.size());
    for (const QItemSelectionRange &range : selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.setBit(row, !files[row].unreadableReason);
    return rows;
}

void EditorRowList::highlight(const QBitArray &rows)
{
    const QScopedValueRollback following(m_isFollowing, true);
    // By itself, since Qt compares each range of one selection with each of the next.
    selectionModel()->clearSelection();
    QItemSelection ranges;
    for (int row = 0; row < rows.size(); ++row) {
        if (!rows.testBit(row))
            continue;
        const int top = row;
        while (row + 1 < rows.size() && rows.testBit(row + 1))
            ++row;
        ranges.append({m_rows->index(top, 0), m_rows->index(row, m_rows->columnCount() - 1)});
    }
    selectionModel()->select(ranges, QItemSelectionModel::Select);
}

void EditorRowList::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    if (m_isFollowing)
        return;
    const QBitArray rows = highlighted();
    QList<qsizetype> places;
    for (qsizetype row = 0; row < rows.size(); ++row)
        if (rows.testBit(row))
            places.append(row);
    m_model.selectPlaces(places);
}

// Qt would look up the place of every changed cell, in view or not.
void EditorRowList::dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                                const QList<int> &roles)
{
    const QModelIndex last = indexAt(QPoint(0, viewport()->height() - 1));
    const int top = std::max(topLeft.row(), indexAt(QPoint(0, 0)).row());
    const int bottom = std::min(bottomRight.row(), last.isValid() ? last.row() : m_rows->rowCount() - 1);
    if (top <= bottom)
        QTreeView::dataChanged(m_rows->index(top, topLeft.column()),
                               m_rows->index(bottom, bottomRight.column()), roles);
}

void EditorRowList::showSortOrder()
{
    const QList<RowComparator> &order = m_model.sortOrder.value();
    if (order.isEmpty())
        m_header->setSortIndicator(-1, Qt::AscendingOrder);
    else
        m_header->setSortIndicator(editorColumnOf(order.first().key), order.first().order);
}

void EditorRowList::sortBy(int column)
{
    m_model.setSortOrder(rowOrderLedBy(editorColumns()[column].sortKey, m_model.sortOrder.value()));
    showSortOrder();
}

void EditorRowList::resizeEvent(QResizeEvent *event)
{
    QTreeView::resizeEvent(event);
    m_header->setRoom(viewport()->width());
}

void EditorRowList::drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    QStyleOptionViewItem cell = option;
    cell.state.setFlag(QStyle::State_Selected, m_selected.testBit(index.row()));
    cell.state.setFlag(QStyle::State_Active, isActiveWindow());
    cell.features.setFlag(QStyleOptionViewItem::Alternate, index.row() % 2 == 1);
    drawGround(painter, cell);
    for (int column = 0; column < m_header->count(); ++column) {
        cell.rect.setLeft(columnViewportPosition(column));
        cell.rect.setWidth(columnWidth(column));
        const QModelIndex shown = index.siblingAtColumn(column);
        itemDelegate()->paint(painter, cell, shown);
        if (hasFocus() && shown == currentIndex())
            drawFocus(painter, cell);
    }
}

void EditorRowList::drawGround(QPainter *painter, const QStyleOptionViewItem &row) const
{
    QStyleOptionViewItem ground = row;
    ground.rect.setLeft(-horizontalOffset());
    ground.rect.setWidth(std::max(m_header->length(), viewport()->width()));
    ground.viewItemPosition = QStyleOptionViewItem::OnlyOne;
    ground.palette.setColor(QPalette::Highlight, legibleGround(row.palette.color(QPalette::Highlight),
                                                               row.palette.color(QPalette::HighlightedText)));
    const QStyle::State state = std::exchange(ground.state, row.state & ~QStyle::State_Selected);
    style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &ground, painter, this);
    ground.state = state;
    style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &ground, painter, this);
}

void EditorRowList::drawFocus(QPainter *painter, const QStyleOptionViewItem &cell) const
{
    QStyleOptionFocusRect frame;
    frame.QStyleOption::operator=(cell);
    frame.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
    frame.backgroundColor =
        cell.palette.color(cell.state & QStyle::State_Selected ? QPalette::Highlight : QPalette::Base);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, painter, this);
}

// To the sides it goes from cell to cell, for those who have them read out.
QModelIndex EditorRowList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex current = currentIndex();
    if (!current.isValid() || (action != MoveLeft && action != MoveRight))
        return QTreeView::moveCursor(action, modifiers);
    const int step = (action == MoveRight) != isRightToLeft() ? 1 : -1;
    const QModelIndex next = current.siblingAtColumn(current.column() + step);
    return next.isValid() ? next : current;
}

} // namespace tonearm
