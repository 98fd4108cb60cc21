// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QRect>

#include <array>

namespace tonearm {

/// The columns of the chapter table in their order. The song titles take the room that the others leave.
enum class ChapterColumn {
    preview,
    number,
    sourceTitle,
    length,
    songTitle,
    badge,
};

/// Where the columns of the chapter table lie.
class ChapterColumns
{
public:
    /// The columns of digits are wider than usual where the font asks for it.
    explicit ChapterColumns(const QFont &font);

    /// Where a column lies in a row or in the header, given the place of the whole. Mirrored where the
    /// layout runs from right to left.
    QRect place(ChapterColumn column, const QRect &row, Qt::LayoutDirection direction) const;

    /// The font for digits that line up: the given one where its digits are all of one width,
    /// otherwise the system's fixed font in its size.
    const QFont &digits() const { return m_digits; }

    /// How a column's text stands in it: digits at the trailing edge.
    static Qt::Alignment alignment(ChapterColumn column);

private:
    QFont m_digits;
    /// Of those in front of the song titles.
    std::array<int, 4> m_widths;
};

} // namespace tonearm
