// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/TemporaryFolders.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

using enum TemporaryFolders::Purpose;

class TemporaryFoldersTest : public testing::Test
{
protected:
    void makeFolder(const QString &name, mode_t mode) const
    {
        const QByteArray path = QFile::encodeName(inBase(name));
        ASSERT_EQ(::mkdir(path.constData(), mode), 0);
        ASSERT_EQ(::chmod(path.constData(), mode), 0);
    }

    QString inBase(const QString &name) const { return m_base.filePath(name); }

    // The folder that serves where the name isn't to be had.
    void expectPrivateSubstitute(const QString &folder) const
    {
        EXPECT_TRUE(folder.startsWith(inBase(u"Tonearm-"_s))) << folder.toStdString();
        EXPECT_TRUE(folder.endsWith(u"/Rips"_s)) << folder.toStdString();
        EXPECT_EQ(modeOf(folder), 0700);
        EXPECT_EQ(modeOf(QFileInfo(folder).path()), 0700);
    }

    static mode_t modeOf(const QString &path)
    {
        struct stat found = {};
        EXPECT_EQ(::lstat(QFile::encodeName(path).constData(), &found), 0) << path.toStdString();
        return found.st_mode & 07777;
    }

    QTemporaryDir m_base;
};

} // namespace

TEST_F(TemporaryFoldersTest, LieUnderOneFolderWithOneNameForEachPurpose)
{
    TemporaryFolders folders(m_base.path());
    EXPECT_EQ(folders.folder(rips), inBase(u"Tonearm/Rips"_s));
    EXPECT_EQ(folders.folder(secureRips), inBase(u"Tonearm/SecureRips"_s));
    EXPECT_EQ(folders.folder(artwork), inBase(u"Tonearm/Artwork"_s));
    EXPECT_EQ(folders.folder(preflight), inBase(u"Tonearm/Preflight"_s));
    EXPECT_EQ(folders.folder(previews), inBase(u"Tonearm/Previews"_s));
    EXPECT_EQ(test::namesIn(inBase(u"Tonearm"_s)).size(), 5);
}

TEST_F(TemporaryFoldersTest, AreMadeOnlyWhenTheyAreAskedFor)
{
    const TemporaryFolders folders(m_base.path());
    EXPECT_EQ(test::namesIn(m_base.path()), QStringList());
}

TEST_F(TemporaryFoldersTest, AreClosedToOthersWhateverTheMask)
{
    const mode_t before = ::umask(0);
    TemporaryFolders folders(m_base.path());
    const QString folder = folders.folder(rips);
    ::umask(before);
    EXPECT_EQ(modeOf(inBase(u"Tonearm"_s)), 0700);
    EXPECT_EQ(modeOf(folder), 0700);
}

TEST_F(TemporaryFoldersTest, AreUsedAgainWithWhatIsInThem)
{
    test::writeFile(TemporaryFolders(m_base.path()).folder(rips) + u"/track"_s, "bytes");
    TemporaryFolders folders(m_base.path());
    EXPECT_EQ(test::readFile(folders.folder(rips) + u"/track"_s), "bytes");
    EXPECT_EQ(folders.folder(rips), inBase(u"Tonearm/Rips"_s));
}

TEST_F(TemporaryFoldersTest, AreClosedIfTheyStoodOpen)
{
    makeFolder(u"Tonearm"_s, 0777);
    makeFolder(u"Tonearm/Rips"_s, 0750);
    TemporaryFolders folders(m_base.path());
    EXPECT_EQ(folders.folder(rips), inBase(u"Tonearm/Rips"_s));
    EXPECT_EQ(modeOf(inBase(u"Tonearm"_s)), 0700);
    EXPECT_EQ(modeOf(inBase(u"Tonearm/Rips"_s)), 0700);
}

TEST_F(TemporaryFoldersTest, AreMadeAgainAfterSomebodyTidiedUp)
{
    TemporaryFolders folders(m_base.path());
    ASSERT_TRUE(QDir(QFileInfo(folders.folder(rips)).path()).removeRecursively());
    EXPECT_EQ(folders.folder(rips), inBase(u"Tonearm/Rips"_s));
    EXPECT_EQ(modeOf(inBase(u"Tonearm/Rips"_s)), 0700);
}

TEST_F(TemporaryFoldersTest, GetAnotherPlaceWhileAFileHoldsTheName)
{
    test::writeFile(inBase(u"Tonearm"_s), "mine");
    TemporaryFolders folders(m_base.path());
    const QString folder = folders.folder(rips);
    expectPrivateSubstitute(folder);
    EXPECT_EQ(folders.folder(rips), folder);
    EXPECT_EQ(QFileInfo(folders.folder(artwork)).path(), QFileInfo(folder).path());
    EXPECT_EQ(test::readFile(inBase(u"Tonearm"_s)), "mine");
}

TEST_F(TemporaryFoldersTest, NeverGoThroughALinkOfThatName)
{
    makeFolder(u"trap"_s, 0755);
    ASSERT_TRUE(QFile::link(inBase(u"trap"_s), inBase(u"Tonearm"_s)));
    expectPrivateSubstitute(TemporaryFolders(m_base.path()).folder(rips));
    EXPECT_EQ(test::namesIn(inBase(u"trap"_s)), QStringList());
    EXPECT_EQ(modeOf(inBase(u"trap"_s)), 0755);
}

TEST_F(TemporaryFoldersTest, NeverUseAFolderOfSomebodyElse)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a folder to somebody else";
    constexpr uid_t somebody = 65534;
    makeFolder(u"Tonearm"_s, 0700);
    ASSERT_EQ(::chown(QFile::encodeName(inBase(u"Tonearm"_s)).constData(), somebody, somebody), 0);
    expectPrivateSubstitute(TemporaryFolders(m_base.path()).folder(rips));
    EXPECT_EQ(test::namesIn(inBase(u"Tonearm"_s)), QStringList());
}

TEST_F(TemporaryFoldersTest, MoveIfTheirPlaceIsTakenAwayLater)
{
    TemporaryFolders folders(m_base.path());
    ASSERT_EQ(folders.folder(rips), inBase(u"Tonearm/Rips"_s));
    ASSERT_TRUE(QDir(inBase(u"Tonearm"_s)).removeRecursively());
    ASSERT_TRUE(QFile::link(m_base.path(), inBase(u"Tonearm"_s)));
    expectPrivateSubstitute(folders.folder(rips));
}

TEST_F(TemporaryFoldersTest, AreRefusedIfALinkStandsInOneOfThem)
{
    makeFolder(u"Tonearm"_s, 0700);
    ASSERT_TRUE(QFile::link(m_base.path(), inBase(u"Tonearm/Rips"_s)));
    TemporaryFolders folders(m_base.path());
    const auto error = test::errorOf<std::system_error>([&] { return folders.folder(rips); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), std::errc::file_exists);
    EXPECT_EQ(folders.folder(artwork), inBase(u"Tonearm/Artwork"_s));
}

TEST_F(TemporaryFoldersTest, AreMadeWithAllThatLeadsToThem)
{
    TemporaryFolders folders(inBase(u"not/yet"_s));
    EXPECT_EQ(folders.folder(rips), inBase(u"not/yet/Tonearm/Rips"_s));
    EXPECT_TRUE(QFileInfo(inBase(u"not/yet/Tonearm/Rips"_s)).isDir());
}

TEST_F(TemporaryFoldersTest, TellThatTheirBaseIsAFile)
{
    test::writeFile(inBase(u"file"_s), {});
    TemporaryFolders folders(inBase(u"file"_s));
    const auto error = test::errorOf<std::system_error>([&] { return folders.folder(rips); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), std::errc::not_a_directory);
    EXPECT_THAT(error->what(), testing::HasSubstr(inBase(u"file/Tonearm"_s).toStdString()));
}

} // namespace tonearm
