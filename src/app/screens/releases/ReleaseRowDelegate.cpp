// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/releases/ReleaseRowDelegate.h"

#include "app/screens/elements/Colours.h"
#include "app/screens/elements/Contrast.h"
#include "app/screens/elements/Spinner.h"
#include "app/screens/elements/TextStyle.h"

#include <QApplication>
#include <QPainter>

namespace tonearm {

namespace {

constexpr int lineGap = 2;
constexpr int verticalPadding = 4;

QFont detailFont(const QFont &font)
{
    return fontOf(TextStyle::smallSecondary, font);
}

// Starts where the row starts, whichever way its text runs.
void paintLine(QPainter *painter, const QRect &place, const QFont &font, Qt::LayoutDirection direction,
               const QString &text)
{
    painter->setFont(font);
    const Qt::Alignment start = QStyle::visualAlignment(direction, Qt::AlignLeft) | Qt::AlignAbsolute;
    const QString shown = painter->fontMetrics().elidedText(text, Qt::ElideRight, place.width());
    painter->drawText(place, int(start) | Qt::AlignTop | Qt::TextSingleLine, shown);
}

} // namespace

void ReleaseRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                               const QModelIndex &index) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const QString name = row.text;
    const QString detail = index.data(detailRole).toString();
    row.text.clear();
    row.palette.setColor(QPalette::Highlight, legibleGround(row.palette.color(QPalette::Highlight),
                                                            row.palette.color(QPalette::HighlightedText)));
    const QStyle *style = row.widget ? row.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);

    const bool isSelected = row.state & QStyle::State_Selected;
    const int roomForSpinner = Spinner::standardSide + padding;
    const QRect area = QStyle::visualRect(
        row.direction, row.rect,
        row.rect.adjusted(padding, verticalPadding, -padding - roomForSpinner, -verticalPadding));
    const int height = QFontMetrics(row.font).height();
    painter->save();
    painter->setPen(isSelected ? row.palette.color(QPalette::HighlightedText)
                               : toneColour(Tone::text, row.palette));
    // A name without details stands in the middle.
    const int top = detail.isEmpty() ? (area.height() - height) / 2 : 0;
    paintLine(painter, area.adjusted(0, top, 0, 0), row.font, row.direction, name);
    if (!isSelected)
        painter->setPen(toneColour(Tone::secondary, row.palette));
    paintLine(painter, area.adjusted(0, height + lineGap, 0, 0), detailFont(row.font), row.direction, detail);
    painter->restore();
}

QSize ReleaseRowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex & /*index*/) const
{
    const int lines = QFontMetrics(option.font).height() + QFontMetrics(detailFont(option.font)).height();
    return {0, lines + lineGap + 2 * verticalPadding};
}

} // namespace tonearm
