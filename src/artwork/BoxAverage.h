// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QSize>

#include <cstddef>
#include <span>
#include <vector>

namespace tonearm {

/// Makes a picture smaller by a whole number while its rows come in from above.
class BoxAverage
{
public:
    /// The smaller picture's size. Each of its pixels stands for a square of `factor` by `factor` pixels; at
    /// the right and lower edges a square may be cut.
    static QSize averagedSize(QSize size, int factor);

    /// `smaller` is filled row by row, complete when `sourceHeight` rows have been added. It has that size
    /// and the format RGB32 or premultiplied ARGB32, and outlives this object.
    BoxAverage(QImage &smaller, int sourceHeight, int factor);

    /// Adds the next row: red, green, blue and opacity of each pixel, not multiplied.
    void addRow(std::span<const quint8> row);

private:
    // Of one pixel of the smaller picture. Colours are multiplied by their opacity, or what can't be seen
    // would tint its surroundings.
    struct Sum
    {
        quint64 red = 0;
        quint64 green = 0;
        quint64 blue = 0;
        quint64 opacity = 0;
        quint64 count = 0;

        void add(std::span<const quint8> pixels);
        QRgb average() const;
    };

    void finishRow();

    QImage &m_smaller;
    std::vector<Sum> m_sums;
    std::size_t m_factor;
    int m_rowsLeft;
    int m_rowsInSquare = 0;
    int m_nextRow = 0;
};

} // namespace tonearm
