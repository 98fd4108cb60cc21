// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/PropertyList.h"

#include "disc/PropertyLists.h"
#include "helpers/Await.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// The number under "key" of a list whose root holds `contents`.
std::optional<qint64> integerIn(const QByteArray &contents)
{
    return PropertyList(test::xmlList(contents)).root().findInteger("key");
}

QString refusalOf(const QByteArray &bytes)
{
    const auto error = test::errorOf<PropertyListError>([&] { return PropertyList(bytes).root(); });
    return error ? error->description() : u"accepted"_s;
}

QString refusalIn(const QByteArray &contents)
{
    const auto error = test::errorOf<PropertyListError>([&] {
        const PropertyList list(test::xmlList(contents));
        for (const auto &element : list.root().findElements("list"))
            element.findInteger("key");
        return list.root().findInteger("key");
    });
    return error ? error->description() : u"accepted"_s;
}

} // namespace

TEST(PropertyList, ReadsWholeNumbers)
{
    EXPECT_EQ(integerIn("<key>key</key><integer>12</integer>"), 12);
    EXPECT_EQ(integerIn("<key>key</key><integer>-12</integer>"), -12);
    EXPECT_EQ(integerIn("<key>key</key><integer>9223372036854775807</integer>"),
              std::numeric_limits<qint64>::max());
    EXPECT_EQ(integerIn("<key>key</key><real>12.0</real>"), 12);
}

TEST(PropertyList, HasNothingUnderAKeyThatIsNotThere)
{
    EXPECT_EQ(integerIn("<key>other</key><integer>12</integer>"), std::nullopt);
    const PropertyList list(test::xmlList({}));
    EXPECT_EQ(list.root().findElements("list").size(), 0);
}

TEST(PropertyList, TellsWhatItFoundInsteadAndWhere)
{
    EXPECT_EQ(refusalIn("<key>key</key><string>12</string>"),
              u"The property list doesn't hold a whole number at key."_s);
    EXPECT_EQ(refusalIn("<key>key</key><real>12.5</real>"),
              u"The property list doesn't hold a whole number at key."_s);
    EXPECT_EQ(refusalIn("<key>key</key><real>1e300</real>"),
              u"The property list doesn't hold a whole number at key."_s);
    EXPECT_EQ(refusalIn("<key>list</key><dict/>"), u"The property list doesn't hold an array at list."_s);
    EXPECT_EQ(refusalIn("<key>list</key><array><dict/><true/></array>"),
              u"The property list doesn't hold a dictionary at list.1."_s);
    EXPECT_EQ(refusalIn("<key>list</key><array><dict><key>key</key><true/></dict></array>"),
              u"The property list doesn't hold a whole number at list.0.key."_s);
}

TEST(PropertyList, RefusesWhatIsNoListWithADictionaryAtItsRoot)
{
    EXPECT_EQ(refusalOf({}), u"It isn't a property list."_s);
    EXPECT_EQ(refusalOf("no list at all"), u"It isn't a property list."_s);
    EXPECT_EQ(refusalOf("bplist00"), u"It isn't a property list."_s);
    EXPECT_EQ(refusalOf("<?xml version=\"1.0\"?><plist version=\"1.0\"><array/></plist>"),
              u"The property list doesn't hold a dictionary at its root."_s);
}

TEST(PropertyList, RefusesNumbersThatAreNone)
{
    for (const char *number :
         {"<integer>abc</integer>", "<integer></integer>", "<integer/>", "<integer>12a</integer>",
          "<integer>1.5</integer>", "<integer>0x10</integer>", "<integer>9223372036854775808</integer>",
          "<integer>-9223372036854775809</integer>", "<real>abc</real>", "<real>1,5</real>"})
        EXPECT_EQ(refusalIn(QByteArray("<key>key</key>") + number),
                  u"The property list holds a number that can't be read."_s)
            << number;
    EXPECT_EQ(integerIn("<key>key</key><integer> 12\n</integer>"), 12);
}

TEST(PropertyList, RefusesMoreThanAnyDiscNeeds)
{
    EXPECT_EQ(refusalOf(test::xmlList(QByteArray(17 * 1024 * 1024, ' '))), u"It isn't a property list."_s);
}

} // namespace tonearm
