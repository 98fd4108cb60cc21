// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editortable/EditorCellDelegate.h"

#include "app/screens/editortable/EditorRows.h"
#include "app/screens/elements/Icons.h"
#include "app/screens/elements/TextStyle.h"
#include "app/screens/elements/Tooltip.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace tonearm {

namespace {

constexpr int iconSide = 16;
constexpr int iconGap = 6;
constexpr int verticalPadding = 3;

// What a cell shows, and in which manner.
struct Cell
{
    explicit Cell(const QModelIndex &index)
        : text(index.data().toString())
        , isName(index.column() == 0)
        , isEdited(index.data(EditorRows::isEditedRole).toBool())
        , isUnreadable(index.data(EditorRows::isUnreadableRole).toBool())
    {
    }

    // How far from the cell's start the text begins.
    int textStart() const
    {
        if (isName)
            return EditorCellDelegate::padding + (isUnreadable ? iconSide + iconGap : 0);
        return EditorCellDelegate::padding + EditorCellDelegate::dotSide + EditorCellDelegate::dotGap;
    }

    int widthBesideText() const { return textStart() + EditorCellDelegate::padding; }

    QFont font(const QFont &around) const
    {
        return isEdited ? fontOf(TextStyle::emphasised, around) : around;
    }

    QString text;
    bool isName;
    bool isEdited;
    bool isUnreadable;
};

QPalette::ColorGroup groupOf(const QStyleOptionViewItem &option)
{
    if (!(option.state & QStyle::State_Enabled))
        return QPalette::Disabled;
    return option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
}

QColor colourOf(Tone tone, const QStyleOptionViewItem &option)
{
    return option.state & QStyle::State_Selected
               ? option.palette.color(groupOf(option), QPalette::HighlightedText)
               : toneColour(tone, option.palette, groupOf(option));
}

// A square at the cell's start, halfway up.
QRect markPlace(const QStyleOptionViewItem &option, int side)
{
    const QRect &cell = option.rect;
    const QRect place(cell.left() + EditorCellDelegate::padding, cell.top() + (cell.height() - side) / 2,
                      side, side);
    return QStyle::visualRect(option.direction, cell, place);
}

void paintDot(QPainter *painter, const QStyleOptionViewItem &option)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(colourOf(Tone::secondary, option));
    painter->drawEllipse(markPlace(option, EditorCellDelegate::dotSide));
}

void paintText(QPainter *painter, const QStyleOptionViewItem &option, const Cell &cell)
{
    const QRect place =
        QStyle::visualRect(option.direction, option.rect,
                           option.rect.adjusted(cell.textStart(), 0, -EditorCellDelegate::padding, 0));
    painter->setFont(cell.font(option.font));
    painter->setPen(colourOf(cell.isUnreadable ? Tone::secondary : Tone::text, option));
    const Qt::Alignment start = QStyle::visualAlignment(option.direction, Qt::AlignLeft) | Qt::AlignAbsolute;
    const QString shown = painter->fontMetrics().elidedText(cell.text, Qt::ElideRight, place.width());
    painter->drawText(place, int(start) | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

} // namespace

void EditorCellDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                               const QModelIndex &index) const
{
    const Cell cell(index);
    painter->save();
    if (cell.isEdited)
        paintDot(painter, option);
    if (cell.isName && cell.isUnreadable)
        paintIcon(*painter, markPlace(option, iconSide), IconName::warning, colourOf(Tone::warning, option));
    paintText(painter, option, cell);
    painter->restore();
}

QSize EditorCellDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const Cell cell(index);
    const int width = QFontMetrics(cell.font(option.font)).horizontalAdvance(cell.text);
    // Alike for all rows.
    const int height = std::max({QFontMetrics(option.font).height(), iconSide,
                                 QFontMetrics(fontOf(TextStyle::emphasised, option.font)).height()});
    return {cell.widthBesideText() + width, height + 2 * verticalPadding};
}

bool EditorCellDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                   const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid() ||
        !index.data(Qt::ToolTipRole).toString().isEmpty() ||
        sizeHint(option, index).width() <= option.rect.width())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::showText(event->globalPos(), plainTooltip(index.data().toString()), view->viewport(),
                       option.rect);
    return true;
}

} // namespace tonearm
