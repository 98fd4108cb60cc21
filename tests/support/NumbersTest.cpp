// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Numbers.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QList>
#include <QLocale>

#include <limits>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(Numbers, ReadsWholeTextsAsDecimals)
{
    const QList<std::pair<QString, double>> cases = {
        {u"0"_s, 0},  {u"12.5"_s, 12.5}, {u"-3.25"_s, -3.25},  {u"+7"_s, 7},      {u".5"_s, 0.5},
        {u"5."_s, 5}, {u"1e3"_s, 1000},  {u"1.5E-2"_s, 0.015}, {u"007.0"_s, 7.0}, {u"0.1"_s, 0.1},
    };
    for (const auto &[text, value] : cases)
        EXPECT_EQ(parseDouble(text), value) << text.toStdString();
}

TEST(Numbers, TakesNothingElseForADecimal)
{
    const QStringList others = {u""_s,
                                u" 1"_s,
                                u"1 "_s,
                                u"1,5"_s,
                                u"1.5s"_s,
                                u"N/A"_s,
                                u"nan"_s,
                                u"inf"_s,
                                u"-inf"_s,
                                u"+-1"_s,
                                u"++1"_s,
                                u"--1"_s,
                                u"+"_s,
                                u"-"_s,
                                u"."_s,
                                u"0x10"_s,
                                u"1e"_s,
                                u"1e400"_s,
                                u"1\n"_s,
                                u"١"_s,
                                u"1.2.3"_s,
                                u"1'000"_s,
                                QString(u"1"_s + QChar(u'\0'))};
    for (const QString &text : others)
        EXPECT_EQ(parseDouble(text), std::nullopt) << text.toStdString();
}

TEST(Numbers, ReadsWholeTextsAsIntegers)
{
    EXPECT_EQ(parseInteger(u"0"), 0);
    EXPECT_EQ(parseInteger(u"-0"), 0);
    EXPECT_EQ(parseInteger(u"+12"), 12);
    EXPECT_EQ(parseInteger(u"-007"), -7);
    EXPECT_EQ(parseInteger(u"9223372036854775807"), std::numeric_limits<qint64>::max());
    EXPECT_EQ(parseInteger(u"-9223372036854775808"), std::numeric_limits<qint64>::min());
}

TEST(Numbers, TakesNothingElseForAnInteger)
{
    for (const QString &text : {u""_s, u" 1"_s, u"1 "_s, u"1.0"_s, u"1e3"_s, u"+-1"_s, u"-"_s, u"+"_s,
                                u"0x1"_s, u"²"_s, u"9223372036854775808"_s, u"-9223372036854775809"_s})
        EXPECT_EQ(parseInteger(text), std::nullopt) << text.toStdString();
}

TEST(Numbers, WritesAPointWhateverTheLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(u"de_DE"_s));
    EXPECT_EQ(fixedPoint(1234567.5, 6), u"1234567.500000"_s);
    EXPECT_EQ(parseDouble(u"1.5"), 1.5);
    EXPECT_EQ(parseDouble(u"1,5"), std::nullopt);
    EXPECT_EQ(padded(1234, 2), u"1234"_s);
    QLocale::setDefault(before);
}

TEST(Numbers, RoundsToTheWantedPlaces)
{
    EXPECT_EQ(fixedPoint(0.0000005, 6), u"0.000000"_s);
    EXPECT_EQ(fixedPoint(2.0 / 3, 3), u"0.667"_s);
    EXPECT_EQ(fixedPoint(-1.5, 0), u"-2"_s);
    EXPECT_EQ(fixedPoint(0, 2), u"0.00"_s);
}

TEST(Numbers, WritesMinutesAndSeconds)
{
    EXPECT_EQ(minutesAndSeconds(0), u"0:00"_s);
    EXPECT_EQ(minutesAndSeconds(59), u"0:59"_s);
    EXPECT_EQ(minutesAndSeconds(4509), u"75:09"_s);
    EXPECT_EQ(minutesAndSeconds(6e20), u"10000000000000000000:00"_s);
    EXPECT_EQ(minutesAndSeconds(-0.0), u"0:00"_s);
}

TEST(Numbers, PadsWithZeros)
{
    EXPECT_EQ(padded(7, 2), u"07"_s);
    EXPECT_EQ(padded(70, 2), u"70"_s);
    EXPECT_EQ(padded(700, 2), u"700"_s);
    EXPECT_EQ(padded(0, 3), u"000"_s);
    EXPECT_EQ(padded(-7, 3), u"-07"_s);
    EXPECT_EQ(padded(7, 0), u"7"_s);
}

} // namespace tonearm
