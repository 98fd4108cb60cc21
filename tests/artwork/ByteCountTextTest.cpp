// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ByteCountText.h"

#include "helpers/Printing.h"
#include "helpers/Surroundings.h"

#include <gtest/gtest.h>

#include <limits>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(ByteCountText, GivesKilobytesWithoutDecimalsAndMegabytesWithOne)
{
    const QList<std::pair<qint64, QString>> rows{
        {614'400, u"614 KB"_s},
        {1'000, u"1 KB"_s},
        {1'499, u"1 KB"_s},
        {1'500, u"2 KB"_s},
        {999'499, u"999 KB"_s},
        {999'500, u"1.0 MB"_s},
        {1'000'000, u"1.0 MB"_s},
        {1'049'999, u"1.0 MB"_s},
        {1'050'000, u"1.1 MB"_s},
        {10'240'000, u"10.2 MB"_s},
        {9'950'000, u"10.0 MB"_s},
        {12'345'678'901, u"12345.7 MB"_s},
        {999'950'000, u"1000.0 MB"_s},
    };
    for (const auto &[byteCount, text] : rows)
        EXPECT_EQ(byteCountText(byteCount), text) << byteCount;
}

TEST(ByteCountText, NeverCallsAFileEmptyThatHoldsSomething)
{
    EXPECT_EQ(byteCountText(1), u"1 KB"_s);
    EXPECT_EQ(byteCountText(499), u"1 KB"_s);
    EXPECT_EQ(byteCountText(0), u"0 KB"_s);
}

TEST(ByteCountText, TakesTheLargestCount)
{
    EXPECT_EQ(byteCountText(std::numeric_limits<qint64>::max()), u"9223372036854.8 MB"_s);
}

TEST(ByteCountText, HasAPointInEveryLocale)
{
    const test::Locale german("de_DE");
    EXPECT_EQ(byteCountText(1'234'567), u"1.2 MB"_s);
}

} // namespace tonearm
