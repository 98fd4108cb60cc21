// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/chapters/ChapterList.h"

#include "app/screens/chapters/ChapterHeader.h"
#include "app/screens/chapters/ChapterListKeys.h"
#include "app/screens/chapters/ChapterRowView.h"

#include <QFocusEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QShortcut>

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int placeholders = 7;
constexpr int smallestHeight = 150;

bool areOfTheSameChapters(const QList<ChapterTableRow> &one, const QList<ChapterTableRow> &other)
{
    const auto isOfTheSame = [](const ChapterTableRow &left, const ChapterTableRow &right) {
        return left.number == right.number && left.sourceTitle == right.sourceTitle &&
               left.length == right.length;
    };
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), isOfTheSame);
}

ChapterRowView *rowViewOf(QObject *titleBox)
{
    return qobject_cast<ChapterRowView *>(titleBox->parent());
}

} // namespace

ChapterList::ChapterList(QWidget *parent)
    : QAbstractScrollArea(parent)
    , m_columns(font())
    , m_header(new ChapterHeader(m_columns, this))
    , m_views([this] { return madeView(); }, [this](ChapterRowView &view, int row) { fill(view, row); })
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(u"Chapter list"_s);
    // A ground of its own, so that Qt can scroll what is drawn already. Not that of text boxes, from
    // which those in the rows have to stand out.
    viewport()->setBackgroundRole(QPalette::Window);
    viewport()->setAutoFillBackground(true);
    auto *previewKey = new QShortcut(Qt::CTRL | Qt::Key_P, this);
    previewKey->setContext(Qt::WidgetWithChildrenShortcut);
    connect(previewKey, &QShortcut::activated, this, [this] {
        if (const std::optional<int> row = focusedRow())
            Q_EMIT previewToggled(*row);
    });
    // Children are read out in their order.
    m_header->lower();
    measure();
}

void ChapterList::setSourceTitleHeader(const QString &title)
{
    m_header->setSourceTitle(title);
}

void ChapterList::setRows(const QList<ChapterTableRow> &rows)
{
    if (areOfTheSameChapters(m_rows, rows)) {
        m_rows = rows;
        if (!m_rows.isEmpty())
            for (const auto &[row, view] : m_views.inUse())
                view->updateRow(m_rows[row]);
        return;
    }
    saveFocus(rows.size());
    m_rows = rows;
    setFocusPolicy(m_rows.isEmpty() ? Qt::NoFocus : Qt::TabFocus);
    refill();
}

QSize ChapterList::minimumSizeHint() const
{
    return {QAbstractScrollArea::minimumSizeHint().width(), m_header->sizeHint().height() + smallestHeight};
}

bool ChapterList::eventFilter(QObject *watched, QEvent *event)
{
    // A row that was scrolled away while it had the focus comes back when the user goes on with it.
    if (continuesTyping(*event))
        if (const ChapterRowView *view = rowViewOf(watched))
            reveal(view->index());
    return QAbstractScrollArea::eventFilter(watched, event);
}

bool ChapterList::focusNextPrevChild(bool next)
{
    const std::optional<int> row = focusedRow();
    const int target = row.value_or(0) + (next ? 1 : -1);
    if (!row || target < 0 || target >= m_rows.size())
        return leave(next);
    focusRow(target, next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void ChapterList::changeEvent(QEvent *event)
{
    QAbstractScrollArea::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
    case QEvent::LayoutDirectionChange:
        measure();
        break;
    default:
        break;
    }
}

void ChapterList::focusInEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusInEvent(event);
    if (m_isLeaving || m_rows.isEmpty())
        return;
    focusRow(event->reason() == Qt::BacktabFocusReason ? rowCount() - 1 : 0, event->reason());
}

void ChapterList::keyPressEvent(QKeyEvent *event)
{
    const std::optional<int> row = focusedRow();
    const std::optional<RowMove> move = rowMove(*event);
    if (!row || !move)
        return event->ignore();
    const int page = std::max(1, viewport()->height() / m_rowHeight - 1);
    const int target = rowAfter(*move, *row, rowCount(), page);
    focusRow(target, target < *row ? Qt::BacktabFocusReason : Qt::TabFocusReason);
    event->accept();
}

void ChapterList::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    m_header->setGeometry(viewport()->x(), viewport()->y() - m_header->sizeHint().height(),
                          viewport()->width(), m_header->sizeHint().height());
    updateScrollBar();
    layoutRows();
}

void ChapterList::scrollContentsBy(int /*dx*/, int dy)
{
    viewport()->scroll(0, dy);
    layoutRows();
}

ChapterRowView *ChapterList::madeView()
{
    auto *view = new ChapterRowView(m_columns, viewport());
    view->titleBox()->installEventFilter(this);
    connect(view, &ChapterRowView::songTitleEdited, this, [this, view](const QString &title) {
        m_rows[view->index()].songTitle = title;
        reveal(view->index());
        Q_EMIT songTitleEdited(view->index(), title);
    });
    connect(view, &ChapterRowView::previewToggled, this,
            [this, view] { Q_EMIT previewToggled(view->index()); });
    return view;
}

void ChapterList::fill(ChapterRowView &view, int row) const
{
    if (m_rows.isEmpty())
        view.showPlaceholder(row);
    else
        view.showRow(row, m_rows[row]);
}

int ChapterList::rowCount() const
{
    return m_rows.isEmpty() ? placeholders : static_cast<int>(m_rows.size());
}

// The window's focus stays with a row while another window is active, and so does the row's view.
std::optional<int> ChapterList::focusedRow() const
{
    const QWidget *focused = window()->focusWidget();
    if (!focused || !viewport()->isAncestorOf(focused))
        return std::nullopt;
    const auto *view = qobject_cast<const ChapterRowView *>(focused->parentWidget());
    return view ? std::optional(view->index()) : std::nullopt;
}

void ChapterList::measure()
{
    const int firstRow = verticalScrollBar()->value() / m_rowHeight;
    m_columns = ChapterColumns(font());
    m_rowHeight = ChapterRowView::heightIn(this);
    m_header->placeColumns();
    for (const auto &[row, view] : m_views.inUse())
        view->placeColumns();
    setViewportMargins(0, m_header->sizeHint().height(), 0, 0);
    updateScrollBar();
    verticalScrollBar()->setValue(firstRow * m_rowHeight);
    layoutRows();
}

void ChapterList::refill()
{
    m_views.release([&](int row) { return row < rowCount(); });
    for (const auto &[row, view] : m_views.inUse())
        fill(*view, row);
    updateScrollBar();
    verticalScrollBar()->setValue(0);
    layoutRows();
}

void ChapterList::layoutRows()
{
    const int top = verticalScrollBar()->value();
    const int first = top / m_rowHeight;
    const int end = std::min(rowCount(), (top + viewport()->height() + m_rowHeight - 1) / m_rowHeight);
    const std::optional<int> focused = focusedRow();
    m_views.release([&](int row) { return (row >= first && row < end) || row == focused; });
    for (int row = first; row < end; ++row)
        m_views.claim(row);
    m_views.hideSpares();
    for (const auto &[row, view] : m_views.inUse())
        view->setGeometry(0, row * m_rowHeight - top, viewport()->width(), m_rowHeight);
}

void ChapterList::updateScrollBar()
{
    QScrollBar *bar = verticalScrollBar();
    bar->setSingleStep(m_rowHeight);
    bar->setPageStep(std::max(m_rowHeight, viewport()->height() - m_rowHeight));
    bar->setRange(0, std::max(0, rowCount() * m_rowHeight - viewport()->height()));
}

void ChapterList::reveal(int row)
{
    const int top = row * m_rowHeight;
    const int lowest = top + m_rowHeight - viewport()->height();
    const int value = verticalScrollBar()->value();
    verticalScrollBar()->setValue(std::min(std::max(value, lowest), top));
}

void ChapterList::focusRow(int row, Qt::FocusReason reason)
{
    reveal(row);
    m_views.claim(row).titleBox()->setFocus(reason);
}

// The boxes stand anywhere in the window's chain of focus, by when they were made. The way out begins
// where the table itself stands.
bool ChapterList::leave(bool next)
{
    QWidget *box = focusedRow() ? window()->focusWidget() : nullptr;
    const QScopedValueRollback leaving(m_isLeaving, true);
    setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    if (QAbstractScrollArea::focusNextPrevChild(next))
        return true;
    if (box)
        box->setFocus();
    return false;
}

// Before rows go: the one with the focus hands it to the last that stays, or to what follows the table.
void ChapterList::saveFocus(qsizetype count)
{
    const std::optional<int> row = focusedRow();
    if (!row || *row < count)
        return;
    if (count > 0)
        focusRow(static_cast<int>(count) - 1, Qt::OtherFocusReason);
    else if (!leave(true))
        window()->focusWidget()->clearFocus();
}

} // namespace tonearm
