// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/ReleaseRowDelegate.h"

#include "app/screens/Colours.h"
#include "app/screens/Spinner.h"

#include <QApplication>
#include <QPainter>

namespace tonearm {

namespace {

constexpr int lineGap = 2;
constexpr int verticalPadding = 4;

QFont detailFont(const QFont &font)
{
    QFont smaller = font;
    smaller.setPointSizeF(font.pointSizeF() * 0.87);
    return smaller;
}

void paintLine(QPainter *painter, const QRect &place, const QFont &font, const QString &text)
{
    painter->setFont(font);
    const QString shown = painter->fontMetrics().elidedText(text, Qt::ElideRight, place.width());
    painter->drawText(place, int(Qt::AlignLeft) | Qt::AlignTop | Qt::TextSingleLine, shown);
}

} // namespace

void ReleaseRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                               const QModelIndex &index) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const QString name = row.text;
    row.text.clear();
    const QStyle *style = row.widget ? row.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);

    const bool isSelected = row.state & QStyle::State_Selected;
    const int roomForSpinner = Spinner::standardSide + padding;
    const QRect area =
        row.rect.adjusted(padding, verticalPadding, -padding - roomForSpinner, -verticalPadding);
    const int height = QFontMetrics(row.font).height();
    painter->save();
    painter->setPen(isSelected ? row.palette.color(QPalette::HighlightedText)
                               : toneColour(Tone::text, row.palette));
    paintLine(painter, area, row.font, name);
    if (!isSelected)
        painter->setPen(toneColour(Tone::secondary, row.palette));
    paintLine(painter, area.adjusted(0, height + lineGap, 0, 0), detailFont(row.font),
              index.data(detailRole).toString());
    painter->restore();
}

QSize ReleaseRowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex & /*index*/) const
{
    const int lines = QFontMetrics(option.font).height() + QFontMetrics(detailFont(option.font)).height();
    return {0, lines + lineGap + 2 * verticalPadding};
}

} // namespace tonearm
