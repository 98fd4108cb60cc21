// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/LostTags.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

TagTable table(const QStringList &keys, const QString &value = u"x"_s)
{
    TagTable result;
    for (const QString &key : keys)
        result.insert(key, value);
    return result;
}

} // namespace

TEST(LostTags, AreThoseThatTheCopyLacksInOrder)
{
    EXPECT_EQ(lostTags(table({u"title"_s, u"zebra"_s, u"barcode"_s, u"éa"_s}), table({u"title"_s}), {}),
              (QStringList{u"barcode"_s, u"zebra"_s, u"éa"_s}));
    EXPECT_EQ(lostTags(table({u"title"_s}), table({u"title"_s, u"new"_s}), {}), QStringList());
}

TEST(LostTags, LookAtPresenceAlone)
{
    EXPECT_EQ(lostTags(table({u"title"_s}, u"a"_s), table({u"title"_s}, u"b"_s), {}), QStringList());
    EXPECT_EQ(lostTags(table({u"title"_s}, u"a"_s), table({u"title"_s}, u""_s), {}), QStringList());
}

TEST(LostTags, ExcuseWhatThePlanWrites)
{
    EXPECT_EQ(lostTags(table({u"title"_s, u"artist"_s, u"a"_s}), {},
                       {u"-metadata"_s, u"TITLE=x"_s, u"-metadata"_s, u"artist="_s, u"-metadata"_s, u"=a"_s}),
              QStringList{u"a"_s});
}

TEST(LostTags, ExcuseWhatFfmpegMakesAnew)
{
    EXPECT_EQ(lostTags(table({u"encoder"_s, u"major_brand"_s, u"minor_version"_s, u"compatible_brands"_s,
                              u"creation_time"_s, u"encoded_by"_s}),
                       {}, {}),
              QStringList{u"encoded_by"_s});
}

TEST(LostTags, CountATagWithoutANameToo)
{
    EXPECT_EQ(lostTags(table({u""_s}), {}, {u"-metadata"_s, u"=x"_s}), QStringList{u""_s});
}

} // namespace tonearm
