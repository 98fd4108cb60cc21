// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/FileChecksum.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "support/Cancellation.h"
#include "support/Digest.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QString checksumOf(const QByteArray &contents, const std::stop_token &stop = {})
{
    const QTemporaryDir folder;
    test::writeFile(folder.filePath(u"file"_s), contents);
    return fileChecksum(folder.filePath(u"file"_s), stop);
}

} // namespace

TEST(FileChecksum, IsLowerCaseSha256)
{
    EXPECT_EQ(checksumOf("abc"), u"ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"_s);
    EXPECT_EQ(checksumOf({}), u"e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"_s);
}

TEST(FileChecksum, CoversAFileOfManyReads)
{
    for (const int size : {1048575, 1048576, 1048577, 3000000}) {
        QByteArray contents(size, 'a');
        contents.back() = 'z';
        EXPECT_EQ(checksumOf(contents), sha256Hex(contents)) << size;
    }
}

TEST(FileChecksum, PassesOnThatAFileCantBeRead)
{
    const QTemporaryDir folder;
    const auto missing =
        test::errorOf<std::system_error>([&] { return fileChecksum(folder.filePath(u"file"_s), {}); });
    ASSERT_TRUE(missing.has_value());
    EXPECT_EQ(missing->code(), std::errc::no_such_file_or_directory);
    const auto unreadable = test::errorOf<std::system_error>([&] { return fileChecksum(folder.path(), {}); });
    ASSERT_TRUE(unreadable.has_value());
    EXPECT_EQ(unreadable->code(), std::errc::is_a_directory);
}

TEST(FileChecksum, EndsWhenCancelled)
{
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW(checksumOf("abc", stop.get_token()), CancellationError);
}

} // namespace tonearm
