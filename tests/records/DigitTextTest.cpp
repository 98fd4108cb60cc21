// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/records/DigitText.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(DigitText, FindsTheFirstFourDigitsInARow)
{
    const QList<std::pair<QString, QString>> cases = {
        {u"1999-05-12"_s, u"1999"_s},
        {u"May 1969"_s, u"1969"_s},
        {u"12345"_s, u"1234"_s},
        {u"99"_s, u""_s},
        {u"19 99"_s, u""_s},
        {u"123-4567"_s, u"4567"_s},
        {u"c1971/1999"_s, u"1971"_s},
        {u""_s, u""_s},
        {u"١٩٦٩"_s, u"١٩٦٩"_s},
        {u"𝟏𝟗𝟔𝟗"_s, u"𝟏𝟗𝟔𝟗"_s},
        {u"19\u030069"_s, u"19\u030069"_s},
    };
    for (const auto &[text, digits] : cases)
        EXPECT_EQ(firstFourDigits(text), digits);
}

TEST(DigitText, ReadsAllDigitsOfATextAsOnePositiveNumber)
{
    const QList<std::pair<QString, QString>> cases = {
        {u"007"_s, u"7"_s},
        {u"1/12"_s, u"112"_s},
        {u"Disc 2"_s, u"2"_s},
        {u"-5"_s, u"5"_s},
        {u"1.5"_s, u"15"_s},
        {u"9223372036854775807"_s, u"9223372036854775807"_s},
        {u"0000000000000000000000001"_s, u"1"_s},
    };
    for (const auto &[text, number] : cases)
        EXPECT_EQ(digitsOnlyNumber(text), number);
}

TEST(DigitText, GivesNoNumberWhereNoneCanBeRead)
{
    for (const QString &text :
         {u""_s, u"one"_s, u"0"_s, u"0/0"_s, u"9223372036854775808"_s, u"٣"_s, u"1½"_s, u"²"_s})
        EXPECT_EQ(digitsOnlyNumber(text), u""_s) << text.toStdString();
}

} // namespace tonearm
