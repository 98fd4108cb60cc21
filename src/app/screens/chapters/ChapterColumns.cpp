// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/chapters/ChapterColumns.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QStyle>

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int previewWidth = 20;
constexpr int numberWidth = 24;
constexpr int sourceTitleWidth = 200;
constexpr int lengthWidth = 56;
constexpr int badgeWidth = 16;
constexpr int gap = 10;

QFont tabularDigits(const QFont &font)
{
    const QFontMetrics metrics(font);
    const QString digits = u"0123456789"_s;
    const int width = metrics.horizontalAdvance(u'0');
    if (std::all_of(digits.begin(), digits.end(),
                    [&](QChar digit) { return metrics.horizontalAdvance(digit) == width; }))
        return font;
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPointSizeF(QFontInfo(font).pointSizeF());
    return fixed;
}

} // namespace

ChapterColumns::ChapterColumns(const QFont &font)
    : m_digits(tabularDigits(font))
{
    const QFontMetrics metrics(m_digits);
    m_widths = {previewWidth, std::max(numberWidth, metrics.horizontalAdvance(u"999"_s)), sourceTitleWidth,
                std::max(lengthWidth, metrics.horizontalAdvance(u"0:00:00"_s))};
}

QRect ChapterColumns::place(ChapterColumn column, const QRect &row, Qt::LayoutDirection direction) const
{
    QRect place = row;
    const auto index = static_cast<std::size_t>(column);
    for (std::size_t before = 0; before < std::min(index, m_widths.size()); ++before)
        place.setLeft(place.left() + m_widths[before] + gap);
    if (index < m_widths.size())
        place.setWidth(m_widths[index]);
    else if (column == ChapterColumn::songTitle)
        place.setWidth(std::max(place.width() - badgeWidth - gap, 0));
    else
        place.setLeft(place.right() + 1 - badgeWidth);
    return QStyle::visualRect(direction, row, place);
}

Qt::Alignment ChapterColumns::alignment(ChapterColumn column)
{
    const bool digits = column == ChapterColumn::number || column == ChapterColumn::length;
    return Qt::AlignVCenter | (digits ? Qt::AlignTrailing : Qt::AlignLeading);
}

} // namespace tonearm
