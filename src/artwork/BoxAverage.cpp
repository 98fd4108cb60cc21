// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/BoxAverage.h"

#include <algorithm>

namespace tonearm {

namespace {

constexpr std::size_t channels = 4;
constexpr quint64 opaque = 255;

int parts(int length, int factor)
{
    return (length - 1) / factor + 1;
}

int rounded(quint64 sum, quint64 count)
{
    return static_cast<int>((sum + count / 2) / count);
}

} // namespace

void BoxAverage::Sum::add(std::span<const quint8> pixels)
{
    const quint8 *const end = pixels.data() + pixels.size();
    for (const quint8 *pixel = pixels.data(); pixel != end; pixel += channels) {
        const quint64 alpha = pixel[3];
        red += pixel[0] * alpha;
        green += pixel[1] * alpha;
        blue += pixel[2] * alpha;
        opacity += alpha;
    }
    count += pixels.size() / channels;
}

QRgb BoxAverage::Sum::average() const
{
    const quint64 whole = count * opaque;
    return qRgba(rounded(red, whole), rounded(green, whole), rounded(blue, whole), rounded(opacity, count));
}

QSize BoxAverage::averagedSize(QSize size, int factor)
{
    return {parts(size.width(), factor), parts(size.height(), factor)};
}

BoxAverage::BoxAverage(QImage &smaller, int sourceHeight, int factor)
    : m_smaller(smaller)
    , m_sums(static_cast<std::size_t>(smaller.width()))
    , m_factor(static_cast<std::size_t>(factor))
    , m_rowsLeft(sourceHeight)
{
}

void BoxAverage::addRow(std::span<const quint8> row)
{
    const std::size_t step = m_factor * channels;
    std::size_t place = 0;
    for (Sum &sum : m_sums) {
        sum.add(row.subspan(place, std::min(step, row.size() - place)));
        place += step;
    }
    --m_rowsLeft;
    ++m_rowsInSquare;
    if (m_rowsLeft == 0 || static_cast<std::size_t>(m_rowsInSquare) == m_factor)
        finishRow();
}

void BoxAverage::finishRow()
{
    auto *pixel = reinterpret_cast<QRgb *>(m_smaller.scanLine(m_nextRow));
    for (Sum &sum : m_sums) {
        *pixel++ = sum.average();
        sum = Sum();
    }
    ++m_nextRow;
    m_rowsInSquare = 0;
}

} // namespace tonearm
