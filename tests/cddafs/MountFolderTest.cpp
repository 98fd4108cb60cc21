// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/MountFolder.h"

#include "cddafs/CddafsError.h"
#include "helpers/Contents.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QByteArray below(const QTemporaryDir &folder, const char *name)
{
    return folder.path().toUtf8() + '/' + name;
}

} // namespace

TEST(MountFolder, IsMadeAndRemovedAgain)
{
    const QTemporaryDir base;
    {
        const MountFolder folder(below(base, "discs"), u"Audio CD"_s);
        EXPECT_EQ(folder.path(), below(base, "discs/Audio CD"));
        EXPECT_EQ(test::namesIn(base.filePath(u"discs"_s)), QStringList{u"Audio CD"_s});
        EXPECT_EQ(QFile::permissions(base.filePath(u"discs/Audio CD"_s)) &
                      (QFile::ReadGroup | QFile::ReadOther),
                  QFile::Permissions());
    }
    EXPECT_EQ(test::namesIn(base.filePath(u"discs"_s)), QStringList());
}

TEST(MountFolder, IsNumberedWhereItsNameIsTaken)
{
    const QTemporaryDir base;
    test::writeFile(base.filePath(u"Audio CD"_s), "a file");
    ASSERT_TRUE(QDir(base.path()).mkpath(u"Audio CD 2/something"_s));
    const MountFolder folder(base.path().toUtf8(), u"Audio CD"_s);
    EXPECT_EQ(folder.path(), below(base, "Audio CD 3"));
}

TEST(MountFolder, IsTheEmptyOneThatAnotherLeftBehind)
{
    const QTemporaryDir base;
    ASSERT_TRUE(QDir(base.path()).mkdir(u"Audio CD"_s));
    const MountFolder folder(base.path().toUtf8(), u"Audio CD"_s);
    EXPECT_EQ(folder.path(), below(base, "Audio CD"));
}

TEST(MountFolder, IsNoLinkToAFolder)
{
    const QTemporaryDir base;
    const QTemporaryDir elsewhere;
    ASSERT_TRUE(QFile::link(elsewhere.path(), base.filePath(u"Audio CD"_s)));
    const MountFolder folder(base.path().toUtf8(), u"Audio CD"_s);
    EXPECT_EQ(folder.path(), below(base, "Audio CD 2"));
}

TEST(MountFolder, CannotBeMadeInAFile)
{
    const QTemporaryDir base;
    test::writeFile(base.filePath(u"file"_s), "a file");
    EXPECT_THROW(MountFolder(below(base, "file"), u"Audio CD"_s), CddafsError);
}

} // namespace tonearm
