// SPDX-License-Identifier: GPL-3.0-or-later
// What a saved file keeps besides its content.
#include "tageditor/FileReplacement.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/OrdinaryUser.h"
#include "helpers/Printing.h"
#include "helpers/SongFolder.h"
#include "tageditor/AudioFileTagError.h"
#include "tageditor/ExtendedAttributes.h"
#include "tageditor/FilePath.h"
#include "tageditor/Writes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::SongFolder;

namespace {

struct stat statusOf(const QString &path)
{
    struct stat found = {};
    EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &found), 0);
    return found;
}

class FileReplacement : public testing::Test
{
protected:
    FileReplacement() { m_folder.makeSong(u"a.flac"_s); }

    QString song() const { return m_folder.path(u"a.flac"_s); }

    void save(const QString &name = u"a.flac"_s) const
    {
        m_folder.write(m_folder.load(name), test::newTitle());
        EXPECT_EQ(m_folder.tags(name).title, u"New Title"_s);
    }

    // Puts a copy in the song's place as a user whom permissions stop would, in folders open to all.
    void replaceAsOrdinaryUser() const
    {
        constexpr mode_t open = 0777;
        ASSERT_EQ(::chmod(QFile::encodeName(QFileInfo(m_folder.path()).path()).constData(), open), 0);
        ASSERT_EQ(::chmod(QFile::encodeName(m_folder.path()).constData(), open), 0);
        const RewriteTarget target = rewriteTarget(m_folder.load(u"a.flac"_s));
        test::asOrdinaryUser([&] {
            createPrivateFile(target.temporary);
            test::writeFile(target.temporary, "new");
            replaceOriginal(target, carryAttributesOver(target));
        });
        EXPECT_EQ(test::readFile(song()), "new");
    }

    SongFolder m_folder;
};

} // namespace

TEST_F(FileReplacement, KeepsTheMode)
{
    for (const mode_t mode : {0600U, 0640U, 0664U, 0755U, 04750U, 01644U}) {
        ASSERT_EQ(::chmod(QFile::encodeName(song()).constData(), mode), 0);
        save();
        EXPECT_EQ(statusOf(song()).st_mode & 07777, mode);
    }
}

TEST_F(FileReplacement, KeepsOwnerAndGroup)
{
    constexpr uid_t owner = 1234;
    constexpr gid_t group = 2345;
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root may give a file away";
    ASSERT_EQ(::chown(QFile::encodeName(song()).constData(), owner, group), 0);
    save();
    EXPECT_EQ(statusOf(song()).st_uid, owner);
    EXPECT_EQ(statusOf(song()).st_gid, group);
}

TEST_F(FileReplacement, GivesTheFileToWhoSavesItWhereTheOwnerCantBeKept)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root has files of another user";
    ASSERT_EQ(::chmod(QFile::encodeName(song()).constData(), 04766), 0);
    ASSERT_NO_FATAL_FAILURE(replaceAsOrdinaryUser());
    EXPECT_EQ(statusOf(song()).st_uid, 65534U);
    // Without the bit that would now let others act as somebody else.
    EXPECT_EQ(statusOf(song()).st_mode & 07777, 0766U);
}

TEST_F(FileReplacement, KeepsExtendedAttributes)
{
    if (!test::setExtendedAttribute(song(), "user.rating", QByteArray("5\0stars", 7)))
        GTEST_SKIP() << "this file system has no extended attributes";
    ASSERT_TRUE(test::setExtendedAttribute(song(), "user.empty", {}));
    ASSERT_TRUE(test::setExtendedAttribute(song(), "user.long", QByteArray(3000, 'x')));
    const auto before = test::extendedAttributes(song());
    ASSERT_EQ(before.size(), 3);
    save();
    EXPECT_EQ(test::extendedAttributes(song()), before);
}

TEST_F(FileReplacement, KeepsTheAccessControlList)
{
    constexpr std::uint32_t user = 1234;
    if (!test::setExtendedAttribute(song(), "system.posix_acl_access", test::accessControlList(user, 4)))
        GTEST_SKIP() << "this file system has no access control lists";
    const auto before = test::extendedAttributes(song());
    const mode_t mode = statusOf(song()).st_mode;
    ASSERT_EQ(before.size(), 1);
    save();
    EXPECT_EQ(test::extendedAttributes(song()), before);
    EXPECT_EQ(statusOf(song()).st_mode, mode);
}

TEST_F(FileReplacement, TakesNoAccessControlListFromTheFolder)
{
    constexpr std::uint32_t user = 1234;
    const mode_t mode = statusOf(song()).st_mode;
    if (!test::setExtendedAttribute(m_folder.path(), "system.posix_acl_default",
                                    test::accessControlList(user, 6)))
        GTEST_SKIP() << "this file system has no access control lists";
    save();
    EXPECT_TRUE(test::extendedAttributes(song()).isEmpty());
    EXPECT_EQ(statusOf(song()).st_mode, mode);
}

TEST_F(FileReplacement, FollowsLinksToTheRealFile)
{
    ASSERT_TRUE(QDir().mkdir(m_folder.path(u"store"_s)));
    ASSERT_TRUE(QFile::rename(song(), m_folder.path(u"store/0001"_s)));
    ASSERT_TRUE(QFile::link(u"store/0001"_s, m_folder.path(u"middle"_s)));
    ASSERT_TRUE(QFile::link(m_folder.path(u"middle"_s), song()));
    save();
    EXPECT_TRUE(QFileInfo(song()).isSymLink());
    EXPECT_TRUE(QFileInfo(m_folder.path(u"middle"_s)).isSymLink());
    EXPECT_FALSE(QFileInfo(m_folder.path(u"store/0001"_s)).isSymLink());
    EXPECT_EQ(test::namesIn(m_folder.path(u"store"_s)), QStringList{u"0001"_s});
}

TEST_F(FileReplacement, LeavesTheOldContentToOtherNamesOfTheFile)
{
    const QByteArray contents = test::readFile(song());
    std::filesystem::create_hard_link(song().toStdString(), m_folder.path(u"b.flac"_s).toStdString());
    save();
    EXPECT_TRUE(test::readFile(m_folder.path(u"b.flac"_s)) == contents);
    EXPECT_EQ(statusOf(song()).st_nlink, 1U);
}

TEST_F(FileReplacement, DatesTheFileAtTheMomentOfTheWrite)
{
    const QDateTime old = QDateTime::fromSecsSinceEpoch(1000000000);
    {
        QFile file(song());
        ASSERT_TRUE(file.open(QFile::ReadWrite));
        ASSERT_TRUE(file.setFileTime(old, QFileDevice::FileModificationTime));
    }
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    save();
    EXPECT_GE(contentModificationDate(m_folder.url(u"a.flac"_s)), before);
}

TEST_F(FileReplacement, WritesToAFileThatNobodyElseCanRead)
{
    createPrivateFile(m_folder.path(u".new"_s));
    EXPECT_EQ(statusOf(m_folder.path(u".new"_s)).st_mode & 07777, 0600U);
    EXPECT_TRUE(test::errorOf<std::system_error>([&] {
        createPrivateFile(m_folder.path(u".new"_s));
        return 0;
    }));
}

TEST_F(FileReplacement, ReplacesNothingThatHasChanged)
{
    const RewriteTarget target = rewriteTarget(m_folder.load(u"a.flac"_s));
    test::writeFile(target.temporary, "new");
    test::writeFile(song(), "changed");
    EXPECT_EQ(test::errorOf<AudioFileTagError>([&] {
                  replaceOriginal(target, carryAttributesOver(target));
                  return 0;
              }),
              AudioFileTagError::fileChangedOnDisk(target.url));
    EXPECT_EQ(test::readFile(song()), "changed");
}

TEST_F(FileReplacement, TakesOverAttributesThatChangeAtTheLastMoment)
{
    const RewriteTarget target = rewriteTarget(m_folder.load(u"a.flac"_s));
    test::writeFile(target.temporary, "new");
    const AttributesDate carriedOver = carryAttributesOver(target);
    constexpr mode_t changed = 0640;
    // The clock of files ticks every few milliseconds.
    ASSERT_TRUE(test::eventually([&] {
        ::chmod(QFile::encodeName(song()).constData(), changed);
        return carryAttributesOver(target) != carriedOver;
    }));
    ::chmod(QFile::encodeName(target.temporary).constData(), 0600);
    replaceOriginal(target, carriedOver);
    struct stat found = {};
    ASSERT_EQ(::stat(QFile::encodeName(song()).constData(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777, changed);
}

} // namespace tonearm
