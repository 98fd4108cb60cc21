// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ByteCountText.h"

#include "support/Numbers.h"

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// In units, rounded half up.
qint64 rounded(qint64 byteCount, qint64 unit)
{
    return byteCount / unit + (byteCount % unit >= unit / 2 ? 1 : 0);
}

} // namespace

QString byteCountText(qint64 byteCount)
{
    constexpr qint64 kilobyte = 1000;
    constexpr qint64 tenthOfMegabyte = 100 * kilobyte;
    constexpr qint64 tenths = 10;
    if (byteCount <= 0)
        return u"0 KB"_s;
    const qint64 kilobytes = std::max<qint64>(1, rounded(byteCount, kilobyte));
    if (kilobytes < kilobyte)
        return padded(kilobytes, 1) + u" KB"_s;
    const qint64 megabyteTenths = rounded(byteCount, tenthOfMegabyte);
    return padded(megabyteTenths / tenths, 1) + u'.' + padded(megabyteTenths % tenths, 1) + u" MB"_s;
}

} // namespace tonearm
