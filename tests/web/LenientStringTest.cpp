// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/LenientString.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QString year(const QByteArray &json)
{
    return LenientString::find(JsonNode::parse("{\"year\": " + json + "}"), u"year"_s).text;
}

} // namespace

TEST(LenientString, ReadsAYearHoweverItIsSent)
{
    EXPECT_EQ(year("1998"), u"1998"_s);
    EXPECT_EQ(year("\"1998\""), u"1998"_s);
    EXPECT_EQ(year("1998.0"), u"1998"_s);
    EXPECT_EQ(year("1.998e3"), u"1998"_s);
    EXPECT_EQ(year("0"), u"0"_s);
}

TEST(LenientString, KeepsATextAsItIs)
{
    EXPECT_EQ(year("\" 1998.5 \""), u" 1998.5 "_s);
    EXPECT_EQ(year("\"\""), u""_s);
}

TEST(LenientString, CutsAFractionTowardZero)
{
    EXPECT_EQ(year("1998.99"), u"1998"_s);
    EXPECT_EQ(year("-1998.99"), u"-1998"_s);
    EXPECT_EQ(year("-0.5"), u"0"_s);
}

TEST(LenientString, KeepsEveryDigitOfALargeInteger)
{
    EXPECT_EQ(year("9007199254740993"), u"9007199254740993"_s);
    EXPECT_EQ(year("9223372036854775807"), u"9223372036854775807"_s);
    EXPECT_EQ(year("-9223372036854775808"), u"-9223372036854775808"_s);
}

TEST(LenientString, ReadsANumberBeyondAnIntegerAsNothing)
{
    for (const char *number : {"9223372036854775808", "1e19", "-1e19", "1e300", "-1e300"})
        EXPECT_EQ(year(number), u""_s) << number;
}

TEST(LenientString, ReadsEverythingElseAsNothing)
{
    for (const char *other : {"null", "true", "false", "[1998]", "{\"year\": 1998}", "[]", "{}"})
        EXPECT_EQ(year(other), u""_s) << other;
    EXPECT_EQ(LenientString::find(JsonNode::parse("{}"), u"year"_s), LenientString());
    EXPECT_EQ(LenientString::read(QJsonValue(QJsonValue::Undefined)), LenientString());
}

TEST(LenientString, StandsInAnObjectOnly)
{
    EXPECT_TRUE(test::errorOf<JsonError>([] {
                    return LenientString::find(JsonNode::parse("[1998]"), u"year"_s);
                }).has_value());
}

} // namespace tonearm
