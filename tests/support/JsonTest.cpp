// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Json.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QByteArrayList>

#include <limits>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

/// What the reader says against the bytes; the empty text if nothing.
template <typename Read> QString complaint(const QByteArray &json, Read read)
{
    const auto error = test::errorOf<JsonError>([&] { return read(JsonNode::parse(json)); });
    return error ? error->description() : QString();
}

QString complaint(const QByteArray &json)
{
    return complaint(json, [](const JsonNode &) { return 0; });
}

std::optional<qint64> wholeNumberIn(const QByteArray &number)
{
    return wholeNumber(JsonNode::parse("[" + number + "]").elements().first().value());
}

} // namespace

TEST(Json, ReadsEachTypeByItsKey)
{
    const JsonNode json =
        JsonNode::parse(R"({"t": "ä", "i": 7, "d": 1.5, "f": true, "a": [1, 2], "o": {"k": ""}})");
    EXPECT_EQ(json.require(u"t"_s).text(), u"ä"_s);
    EXPECT_EQ(json.require(u"i"_s).integer(), 7);
    EXPECT_EQ(json.require(u"d"_s).number(), 1.5);
    EXPECT_EQ(json.require(u"i"_s).number(), 7.0);
    EXPECT_EQ(json.require(u"f"_s).flag(), true);
    EXPECT_EQ(json.require(u"a"_s).elements().size(), 2);
    EXPECT_EQ(json.findText(u"t"_s), u"ä"_s);
    EXPECT_EQ(json.findInteger(u"i"_s), 7);
    EXPECT_EQ(json.findElements(u"a"_s)->at(1).integer(), 2);
    EXPECT_EQ(json.findObject(u"o"_s)->require(u"k"_s).text(), u""_s);
}

TEST(Json, TakesNullForAbsent)
{
    const JsonNode json = JsonNode::parse(R"({"n": null})");
    for (const QString &key : {u"n"_s, u"missing"_s, u"N"_s, u""_s}) {
        EXPECT_FALSE(json.find(key)) << key.toStdString();
        EXPECT_FALSE(json.findText(key));
        EXPECT_FALSE(json.findInteger(key));
        EXPECT_FALSE(json.findElements(key));
        EXPECT_FALSE(json.findObject(key));
    }
}

TEST(Json, TellsWhichValueIsMissing)
{
    const auto read = [](const JsonNode &json) {
        return json.require(u"streams"_s).elements().at(1).require(u"tags"_s).require(u"title"_s).text();
    };
    EXPECT_EQ(complaint("{}", read), u"The value at \"streams\" is missing."_s);
    EXPECT_EQ(complaint(R"({"streams": null})", read), u"The value at \"streams\" is missing."_s);
    EXPECT_EQ(complaint(R"({"streams": [1, {"tags": {}}]})", read),
              u"The value at \"streams.Index 1.tags.title\" is missing."_s);
}

TEST(Json, TellsThePlaceOfAValueOfTheWrongType)
{
    const auto read = [](const JsonNode &json) {
        return json.require(u"streams"_s).elements().at(0).require(u"tags"_s).require(u"title"_s).text();
    };
    EXPECT_EQ(complaint("[]", read), u"Expected an object at the top but found an array."_s);
    EXPECT_EQ(complaint(R"({"streams": 1})", read),
              u"Expected an array at \"streams\" but found a number."_s);
    EXPECT_EQ(complaint(R"({"streams": [null]})", read),
              u"Expected an object at \"streams.Index 0\" but found null."_s);
    EXPECT_EQ(complaint(R"({"streams": [{"tags": true}]})", read),
              u"Expected an object at \"streams.Index 0.tags\" but found a flag."_s);
    EXPECT_EQ(complaint(R"({"streams": [{"tags": {"title": {}}}]})", read),
              u"Expected a text at \"streams.Index 0.tags.title\" but found an object."_s);
}

TEST(Json, TellsWhatWasWantedAndWhatWasFound)
{
    const QByteArray json = R"({"v": "7"})";
    EXPECT_EQ(complaint(json, [](const JsonNode &node) { return node.findInteger(u"v"_s); }),
              u"Expected a whole number at \"v\" but found a text."_s);
    EXPECT_EQ(complaint(json, [](const JsonNode &node) { return node.require(u"v"_s).number(); }),
              u"Expected a number at \"v\" but found a text."_s);
    EXPECT_EQ(complaint(json, [](const JsonNode &node) { return node.require(u"v"_s).flag(); }),
              u"Expected a flag at \"v\" but found a text."_s);
    EXPECT_EQ(complaint(json, [](const JsonNode &node) { return node.findElements(u"v"_s); }),
              u"Expected an array at \"v\" but found a text."_s);
    EXPECT_EQ(complaint(json, [](const JsonNode &node) { return node.findObject(u"v"_s); }),
              u"Expected an object at \"v\" but found a text."_s);
    EXPECT_EQ(complaint(json, [](const JsonNode &node) { return node.elements(); }),
              u"Expected an array at the top but found an object."_s);
    EXPECT_EQ(complaint(R"({"v": 2.5})", [](const JsonNode &node) { return node.findInteger(u"v"_s); }),
              u"Expected a whole number at \"v\" but found a number."_s);
}

TEST(Json, TellsKindsOfErrorsApart)
{
    using Kind = JsonError::Kind;
    const auto error = [](const QByteArray &json) {
        return test::errorOf<JsonError>(
            [&] { return JsonNode::parse(json).require(u"a"_s).elements().at(0).require(u"b"_s).text(); });
    };
    const auto expect = [&](const QByteArray &json, Kind kind, const QString &path, const QString &key) {
        const auto found = error(json);
        ASSERT_TRUE(found.has_value()) << json.toStdString();
        EXPECT_EQ(found->kind, kind) << json.toStdString();
        EXPECT_EQ(found->path, path);
        EXPECT_EQ(found->key, key);
    };
    expect("", Kind::corrupted, {}, {});
    expect("[", Kind::corrupted, {}, {});
    expect("[]", Kind::typeMismatch, {}, {});
    expect("{}", Kind::keyNotFound, u"a"_s, u"a"_s);
    expect(R"({"a": null})", Kind::missingValue, u"a"_s, {});
    expect(R"({"a": 1})", Kind::typeMismatch, u"a"_s, {});
    expect(R"({"a": [null]})", Kind::typeMismatch, u"a.Index 0"_s, {});
    expect(R"({"a": [{}]})", Kind::keyNotFound, u"a.Index 0.b"_s, u"b"_s);
    expect(R"({"a": [{"b": null}]})", Kind::missingValue, u"a.Index 0.b"_s, {});
    expect(R"({"a": [{"b": 1}]})", Kind::typeMismatch, u"a.Index 0.b"_s, {});
    EXPECT_EQ(JsonError(u"x"_s).kind, Kind::other);
}

TEST(Json, ReadsAWholeNumberHoweverItIsWritten)
{
    for (const char *two : {"2", "2.0", "2e0", "0.2e1", "20e-1"})
        EXPECT_EQ(wholeNumberIn(two), 2) << two;
    EXPECT_EQ(wholeNumberIn("0"), 0);
    EXPECT_EQ(wholeNumberIn("-0.0"), 0);
    EXPECT_EQ(wholeNumberIn("-1"), -1);
    EXPECT_EQ(wholeNumberIn("-1.0"), -1);
    EXPECT_EQ(wholeNumberIn("9007199254740993"), 9007199254740993);
    EXPECT_EQ(wholeNumberIn("9223372036854775807"), std::numeric_limits<qint64>::max());
    EXPECT_EQ(wholeNumberIn("-9223372036854775808"), std::numeric_limits<qint64>::min());
}

TEST(Json, TakesNothingElseForAWholeNumber)
{
    for (const char *other : {"2.5", "-0.5", "9223372036854775808", "18446744073709551616", "-1e19", "1e300",
                              "\"2\"", "true", "null", "[2]", "{}"})
        EXPECT_EQ(wholeNumberIn(other), std::nullopt) << other;
}

TEST(Json, RefusesWhatIsNoDocument)
{
    const QByteArrayList others = {"not found",
                                   "7",
                                   "\"text\"",
                                   "null",
                                   "true",
                                   "{\"a\": 1",
                                   "{\"a\"",
                                   "[1,]",
                                   "{'a': 1}",
                                   "{} x",
                                   "{\"a\": 1e400}",
                                   "{\"a\": NaN}",
                                   "[\"\xff\"]",
                                   "[\"\xed\xa0\x80\"]",
                                   QByteArray("[]\0", 3),
                                   QByteArray("[\0]\0", 4),
                                   "\xff\xfe"};
    for (const QByteArray &json : others)
        EXPECT_TRUE(complaint(json).startsWith(u"The data isn't valid JSON: ")) << json.toStdString();
}

TEST(Json, TellsWhereADocumentBreaks)
{
    EXPECT_EQ(complaint("{\"a\": 1} x"),
              u"The data isn't valid JSON: garbage at the end of the document at byte 9."_s);
    EXPECT_EQ(complaint("[\"a\", \"b"), u"The data isn't valid JSON: unterminated string at byte 9."_s);
}

TEST(Json, TellsThatThereIsNothingToRead)
{
    EXPECT_EQ(complaint(""), u"The data is empty."_s);
    EXPECT_EQ(complaint(" \n\t"), u"The data is empty."_s);
}

TEST(Json, RefusesDeepNestingWithoutFallingOver)
{
    EXPECT_EQ(complaint(QByteArray(100000, '[')),
              u"The data isn't valid JSON: too deeply nested document at byte 1025."_s);
    EXPECT_TRUE(complaint(QByteArray("{\"a\":").repeated(100000)).contains(u"too deeply nested"));
}

TEST(Json, PassesOverAByteOrderMark)
{
    EXPECT_EQ(JsonNode::parse("\xef\xbb\xbf{\"a\": 1}").findInteger(u"a"_s), 1);
}

TEST(Json, ReadsEmptyContainers)
{
    EXPECT_EQ(JsonNode::parse("[]").elements().size(), 0);
    EXPECT_FALSE(JsonNode::parse("{}").object().find(u"a"_s));
}

} // namespace tonearm
