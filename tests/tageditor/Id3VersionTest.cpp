// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/Id3Version.h"

#include "helpers/Contents.h"
#include "helpers/SongFolder.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

std::optional<int> versionOf(const QString &name, const QByteArray &contents)
{
    const test::SongFolder folder;
    test::writeFile(folder.path(name), contents);
    return id3Version(folder.url(name));
}

} // namespace

TEST(Id3Version, IsTheOneOfTheHeader)
{
    EXPECT_EQ(versionOf(u"a.mp3"_s, QByteArray("ID3\x03\0\0", 6)), 3);
    EXPECT_EQ(versionOf(u"A.MP3"_s, QByteArray("ID3\x04\0\0", 6)), 4);
}

TEST(Id3Version, IsNothingForOtherVersionsAndOtherStarts)
{
    EXPECT_EQ(versionOf(u"a.mp3"_s, "ID3\x02"), std::nullopt);
    EXPECT_EQ(versionOf(u"a.mp3"_s, "ID3\x05"), std::nullopt);
    EXPECT_EQ(versionOf(u"a.mp3"_s, "ID3\xFF"), std::nullopt);
    EXPECT_EQ(versionOf(u"a.mp3"_s, "id3\x03"), std::nullopt);
    EXPECT_EQ(versionOf(u"a.mp3"_s, "\xFF\xFB\x03\x03"), std::nullopt);
}

TEST(Id3Version, IsNothingForAFileThatIsTooShortOrNotThere)
{
    EXPECT_EQ(versionOf(u"a.mp3"_s, "ID3"), std::nullopt);
    EXPECT_EQ(versionOf(u"a.mp3"_s, ""), std::nullopt);
    EXPECT_EQ(id3Version(QUrl::fromLocalFile(u"/nowhere/a.mp3"_s)), std::nullopt);
}

TEST(Id3Version, IsNothingForAFileOfAnotherKind)
{
    EXPECT_EQ(versionOf(u"a.flac"_s, "ID3\x03"), std::nullopt);
}

TEST(Id3Version, IsFoundInRealFiles)
{
    const test::SongFolder folder;
    folder.makeSong(u"a.mp3"_s);
    EXPECT_EQ(id3Version(folder.url(u"a.mp3"_s)), 3);
}

} // namespace tonearm
