// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkFolder.h"

#include "artwork/FullArtworkDisk.h"
#include "artwork/PictureFolder.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::FullArtworkDisk;
using test::PictureFolder;
using testing::IsEmpty;

namespace {

constexpr qsizetype uuidLength = 36;

// The part of a file's name behind the UUID and the hyphen; fails the test if those aren't there.
QString suffixOf(const QUrl &url)
{
    const QString name = url.fileName();
    EXPECT_FALSE(QUuid::fromString(name.left(uuidLength)).isNull()) << name.toStdString();
    EXPECT_EQ(name.mid(uuidLength, 1), u"-"_s);
    return name.mid(uuidLength + 1);
}

} // namespace

TEST(ArtworkFolder, SavesBytesUnderAUuidAndTheSuffix)
{
    const PictureFolder folder;
    const QUrl url = folder.artwork()->save("bytes", u"Discogs-cover.jpg"_s);
    EXPECT_EQ(QFileInfo(url.toLocalFile()).path(), folder.artworkPath());
    EXPECT_EQ(suffixOf(url), u"Discogs-cover.jpg"_s);
    EXPECT_EQ(test::readFile(url.toLocalFile()), "bytes");
}

TEST(ArtworkFolder, NeverSavesTwoFilesUnderOneName)
{
    const PictureFolder folder;
    EXPECT_NE(folder.artwork()->save("one", u"cover.jpg"_s), folder.artwork()->save("two", u"cover.jpg"_s));
    EXPECT_EQ(folder.artworkNames().size(), 2);
}

TEST(ArtworkFolder, CutsANameThatIsTooLongInFrontOfItsExtension)
{
    const PictureFolder folder;
    const QUrl url = folder.artwork()->save("bytes", QString(120, u'音') + u"-resized.jpg"_s);
    EXPECT_LE(url.fileName().toUtf8().size(), 255);
    EXPECT_TRUE(suffixOf(url).startsWith(QString(60, u'音')));
    EXPECT_TRUE(url.fileName().endsWith(u"音.jpg"_s));
}

TEST(ArtworkFolder, MakesItsFolderAgainWhenItHasGone)
{
    const PictureFolder folder;
    folder.artwork()->save("one", u"cover.jpg"_s);
    ASSERT_TRUE(QDir(folder.artworkPath()).removeRecursively());
    folder.artwork()->save("two", u"cover.jpg"_s);
    EXPECT_EQ(folder.artworkNames().size(), 1);
}

TEST(ArtworkFolder, PassesOnWhySavingFailed)
{
    ArtworkFolder folder(u"/proc/nothing-here"_s);
    EXPECT_THROW(folder.save("bytes", u"cover.jpg"_s), std::system_error);
}

TEST(ArtworkFolder, LeavesNothingOfAFileThatTheDiskHasNoRoomFor)
{
    const FullArtworkDisk disk;
    if (!disk.isMounted())
        GTEST_SKIP() << "mounting isn't permitted here";
    EXPECT_THROW(disk.artwork()->save(QByteArray(3 * disk.roomBytes, 'x'), u"cover.jpg"_s),
                 std::system_error);
    EXPECT_THAT(disk.artworkNames(), IsEmpty());
    disk.artwork()->save(QByteArray(disk.roomBytes, 'x'), u"cover.jpg"_s);
    EXPECT_EQ(disk.artworkNames().size(), 1);
}

TEST(ArtworkFolder, DiscardsAFileOfItsOwn)
{
    const PictureFolder folder;
    const QUrl kept = folder.artwork()->save("kept", u"cover.jpg"_s);
    folder.artwork()->discard(folder.artwork()->save("dropped", u"cover.jpg"_s));
    EXPECT_EQ(folder.artworkNames(), QStringList{kept.fileName()});
}

TEST(ArtworkFolder, DiscardsWhatAnotherObjectOfTheSameFolderSaved)
{
    const QTemporaryDir base;
    const QUrl url = ArtworkFolder(base.path()).save("bytes", u"cover.jpg"_s);
    ArtworkFolder(base.path()).discard(url);
    EXPECT_FALSE(QFileInfo::exists(url.toLocalFile()));
}

TEST(ArtworkFolder, LeavesAUsersFileAlone)
{
    const PictureFolder folder;
    const QUrl url = folder.add(u"cover.jpg"_s, "bytes");
    folder.artwork()->discard(url);
    EXPECT_TRUE(QFileInfo::exists(url.toLocalFile()));
}

TEST(ArtworkFolder, LeavesAFileAloneWhosePathOnlyBeginsLikeTheFolder)
{
    const PictureFolder folder;
    folder.artwork()->save("bytes", u"cover.jpg"_s);
    ASSERT_TRUE(QDir().mkpath(folder.artworkPath() + u"-of-mine"_s));
    const QString sibling = folder.artworkPath() + u"-of-mine/cover.jpg"_s;
    test::writeFile(sibling, "bytes");
    const QString above = folder.artworkPath() + u"/../cover.jpg"_s;
    test::writeFile(above, "bytes");
    folder.artwork()->discard(QUrl::fromLocalFile(sibling));
    folder.artwork()->discard(QUrl::fromLocalFile(above));
    EXPECT_TRUE(QFileInfo::exists(sibling));
    EXPECT_TRUE(QFileInfo::exists(above));
}

TEST(ArtworkFolder, LeavesAFileAloneThatALinkInTheFolderLeadsTo)
{
    const PictureFolder folder;
    const QUrl users = folder.add(u"cover.jpg"_s, "bytes");
    folder.artwork()->save("bytes", u"cover.jpg"_s);
    const QString link = folder.artworkPath() + u"/link"_s;
    ASSERT_TRUE(QFile::link(QFileInfo(users.toLocalFile()).path(), link));
    folder.artwork()->discard(QUrl::fromLocalFile(link + u"/cover.jpg"_s));
    EXPECT_TRUE(QFileInfo::exists(users.toLocalFile()));
}

TEST(ArtworkFolder, FindsItsFileByAnotherWay)
{
    const PictureFolder folder;
    const QUrl url = folder.artwork()->save("bytes", u"cover.jpg"_s);
    folder.artwork()->discard(QUrl::fromLocalFile(folder.artworkPath() + u"/../Artwork/"_s + url.fileName()));
    EXPECT_THAT(folder.artworkNames(), IsEmpty());
}

TEST(ArtworkFolder, IgnoresWhatCantBeDeleted)
{
    const PictureFolder folder;
    const QUrl kept = folder.artwork()->save("kept", u"cover.jpg"_s);
    folder.artwork()->discard(QUrl::fromLocalFile(folder.artworkPath() + u"/not-there.jpg"_s));
    folder.artwork()->discard(QUrl::fromLocalFile(folder.artworkPath()));
    folder.artwork()->discard(QUrl());
    folder.artwork()->discard(QUrl(u"https://example.org/cover.jpg"_s));
    ArtworkFolder(u"/proc/nothing-here"_s).discard(kept);
    EXPECT_EQ(folder.artworkNames(), QStringList{kept.fileName()});
}

} // namespace tonearm
