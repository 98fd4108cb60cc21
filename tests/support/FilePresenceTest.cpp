// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FilePresence.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThreadPool>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct FilePresenceTest : testing::Test
{
    FilePresenceTest() { makeFile(); }

    void makeFile()
    {
        EXPECT_TRUE(QDir().mkpath(folder));
        writeFile(file, "text");
    }

    void expectThere(bool isThere)
    {
        EXPECT_TRUE(eventually([&] { return presence.isThere() == isThere; }));
    }

    // Follows the file until the first look at it is over, and with it the watch set up.
    void followExisting()
    {
        presence.follow(file);
        settle();
        ASSERT_TRUE(presence.isThere());
    }

    static void settle()
    {
        constexpr int handOvers = 4;
        for (int step = 0; step < handOvers; ++step) {
            QCoreApplication::processEvents();
            QThreadPool::globalInstance()->waitForDone();
        }
        QCoreApplication::processEvents();
    }

    QTemporaryDir root;
    QString folder = root.filePath(u"folder"_s);
    QString file = folder + u"/a log.txt"_s;
    QString elsewhere = root.filePath(u"elsewhere"_s);
    FilePresence presence;
};

} // namespace

TEST_F(FilePresenceTest, IsFalseWithoutAFile)
{
    EXPECT_FALSE(presence.isThere());
    presence.look();
    presence.follow(std::nullopt);
    settle();
    EXPECT_FALSE(presence.isThere());
}

TEST_F(FilePresenceTest, IsTrueAtOnceAndStays)
{
    presence.follow(file);
    EXPECT_TRUE(presence.isThere());
    settle();
    EXPECT_TRUE(presence.isThere());
}

TEST_F(FilePresenceTest, FindsOutThatAFileIsMissing)
{
    presence.follow(folder + u"/no such file"_s);
    expectThere(false);
    presence.follow(root.filePath(u"no such folder/file"_s));
    expectThere(false);
}

TEST_F(FilePresenceTest, NoticesThatTheFileIsDeletedAndComesBack)
{
    followExisting();
    ASSERT_TRUE(QFile::remove(file));
    expectThere(false);
    writeFile(file, "text");
    expectThere(true);
}

TEST_F(FilePresenceTest, NoticesThatTheFileIsMovedAwayAndBack)
{
    followExisting();
    ASSERT_TRUE(QFile::rename(file, elsewhere));
    expectThere(false);
    ASSERT_TRUE(QFile::rename(elsewhere, file));
    expectThere(true);
}

TEST_F(FilePresenceTest, NoticesThatTheFolderIsMoved)
{
    followExisting();
    ASSERT_TRUE(QDir().rename(folder, elsewhere));
    expectThere(false);
}

TEST_F(FilePresenceTest, LooksAgainWhenItIsAsked)
{
    ASSERT_TRUE(QFile::remove(file));
    ASSERT_TRUE(QDir().rmdir(folder));
    presence.follow(file);
    expectThere(false);
    // There was no folder to watch.
    makeFile();
    settle();
    EXPECT_FALSE(presence.isThere());
    presence.look();
    expectThere(true);
}

TEST_F(FilePresenceTest, TellsWhoObservesIt)
{
    QProperty<bool> observer;
    observer.setBinding([this] { return presence.isThere(); });
    presence.follow(file);
    EXPECT_TRUE(observer.value());
    presence.follow(std::nullopt);
    EXPECT_FALSE(observer.value());
}

TEST_F(FilePresenceTest, ForgetsTheFileBefore)
{
    followExisting();
    const QString other = root.filePath(u"other"_s);
    writeFile(other, "text");
    presence.follow(other);
    ASSERT_TRUE(QFile::remove(file));
    settle();
    EXPECT_TRUE(presence.isThere());
    ASSERT_TRUE(QFile::remove(other));
    expectThere(false);
}

} // namespace tonearm
