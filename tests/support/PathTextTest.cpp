// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/PathText.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(PlainPath, IsReadableAndEndsInNoSlash)
{
    EXPECT_EQ(plainPath(QUrl::fromLocalFile(u"/a b/50% %41/#1?.mkv"_s)), u"/a b/50% %41/#1?.mkv"_s);
    EXPECT_EQ(plainPath(QUrl::fromLocalFile(u"/music/"_s)), u"/music"_s);
    EXPECT_EQ(plainPath(QUrl::fromLocalFile(u"/music//"_s)), u"/music/"_s);
    EXPECT_EQ(plainPath(QUrl::fromLocalFile(u"/"_s)), u"/"_s);
    EXPECT_EQ(plainPath(QUrl()), u""_s);
}

TEST(LastPathComponent, NamesFilesAndFolders)
{
    EXPECT_EQ(lastPathComponent(QUrl::fromLocalFile(u"/a b/50% %41#1?.mkv"_s)), u"50% %41#1?.mkv"_s);
    EXPECT_EQ(lastPathComponent(QUrl::fromLocalFile(u"/music/My Music/"_s)), u"My Music"_s);
    EXPECT_EQ(lastPathComponent(QUrl::fromLocalFile(u"/"_s)), u"/"_s);
    EXPECT_EQ(lastPathComponent(QUrl()), u""_s);
}

TEST(LowerCaseExtension, IsTheLastAndNeverThatOfAHiddenName)
{
    const auto of = [](const QString &name) {
        return lowerCaseExtension(QUrl::fromLocalFile(u"/x/"_s + name));
    };
    EXPECT_EQ(of(u"a.b.MKV"_s), u"mkv"_s);
    EXPECT_EQ(of(u"mkv"_s), u""_s);
    EXPECT_EQ(of(u".mkv"_s), u""_s);
    EXPECT_EQ(of(u"a."_s), u""_s);
}

} // namespace tonearm
