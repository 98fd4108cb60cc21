// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/settings/FolderLock.h"

#include "helpers/Contents.h"
#include "settings/ChildProcess.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <unistd.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TEST(FolderLock, IsRefusedWhileAnotherHoldsIt)
{
    const QTemporaryDir folder;
    {
        const FolderLock first(folder.path(), 0ms);
        EXPECT_FALSE(first.isRefused());
        EXPECT_TRUE(FolderLock(folder.path(), 5ms).isRefused());
    }
    EXPECT_FALSE(FolderLock(folder.path(), 0ms).isRefused());
}

TEST(FolderLock, LeavesNothingInTheFolder)
{
    const QTemporaryDir folder;
    const FolderLock lock(folder.path(), 0ms);
    EXPECT_EQ(test::namesIn(folder.path()), QStringList());
}

TEST(FolderLock, OfADeadProcessIsFree)
{
    const QTemporaryDir folder;
    {
        test::ChildProcess holder([&] {
            const FolderLock lock(folder.path(), 10s);
            test::writeFile(folder.filePath(u"held"_s), {});
            ::pause();
        });
        while (test::namesIn(folder.path()).isEmpty())
            ASSERT_FALSE(holder.hasEnded());
        EXPECT_TRUE(FolderLock(folder.path(), 0ms).isRefused());
    }
    EXPECT_FALSE(FolderLock(folder.path(), 0ms).isRefused());
}

TEST(FolderLock, HoldsNobodyUpWhereThereIsNothingToLock)
{
    const QTemporaryDir folder;
    EXPECT_FALSE(FolderLock(folder.filePath(u"missing"_s), 10s).isRefused());
}

} // namespace tonearm
