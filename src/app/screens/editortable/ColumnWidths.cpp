// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editortable/ColumnWidths.h"

#include <algorithm>
#include <numeric>

namespace tonearm {

namespace {

int sumOf(const QList<int> &numbers)
{
    return std::accumulate(numbers.begin(), numbers.end(), 0);
}

template <typename Width> QList<int> eachOf(const QList<ColumnWish> &wishes, Width width)
{
    QList<int> widths;
    for (const ColumnWish &wish : wishes)
        widths.append(width(wish));
    return widths;
}

// Deals out pixels by weight, at most as many as there are, so that not one is lost to rounding.
void deal(QList<int> &widths, const QList<int> &weights, int pixels)
{
    int weightLeft = sumOf(weights);
    for (qsizetype column = 0; column < widths.size() && weightLeft > 0; ++column) {
        const int share = int(qint64(pixels) * weights[column] / weightLeft);
        widths[column] += share;
        pixels -= share;
        weightLeft -= weights[column];
    }
}

// Takes the widths as far towards larger ones as the room allows.
void growTowards(QList<int> &widths, const QList<int> &wanted, int room)
{
    QList<int> lacking;
    for (qsizetype column = 0; column < widths.size(); ++column)
        lacking.append(std::max(0, wanted[column] - widths[column]));
    deal(widths, lacking, std::clamp(room - sumOf(widths), 0, sumOf(lacking)));
}

} // namespace

QList<int> columnWidths(const QList<ColumnWish> &wishes, int room)
{
    QList<int> widths = eachOf(wishes, [](const ColumnWish &wish) { return wish.minimum; });
    growTowards(widths, eachOf(wishes, [](const ColumnWish &wish) { return wish.ideal; }), room);
    growTowards(widths, eachOf(wishes, [](const ColumnWish &wish) { return wish.comfortable; }), room);
    deal(widths, eachOf(wishes, [](const ColumnWish &wish) { return wish.isStretching ? wish.ideal : 0; }),
         std::max(0, room - sumOf(widths)));
    return widths;
}

} // namespace tonearm
