// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/RipFiles.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

class SystemRipFilesTest : public testing::Test
{
protected:
    QString path() const { return m_folder.filePath(u"file"_s); }

    // The error of a call, which has to fail.
    template <typename Call> static std::error_code codeOf(Call call)
    {
        const auto error = test::errorOf<std::system_error>(call);
        return error ? error->code() : std::error_code();
    }

    QTemporaryDir m_folder;
    const SystemRipFiles m_files;
};

} // namespace

TEST_F(SystemRipFilesTest, TellsWhetherAFileIsThereAndHowLargeItIs)
{
    EXPECT_FALSE(m_files.isReadable(path()));
    EXPECT_EQ(m_files.size(path()), std::nullopt);
    test::writeFile(path(), "12345");
    EXPECT_TRUE(m_files.isReadable(path()));
    EXPECT_EQ(m_files.size(path()), 5);
}

TEST_F(SystemRipFilesTest, ReadsFromWhereAFileStands)
{
    test::writeFile(path(), "0123456789");
    const auto file = m_files.open(path());
    EXPECT_EQ(file->read(4), "0123");
    EXPECT_EQ(file->read(4), "4567");
    EXPECT_EQ(file->read(4), "89");
    EXPECT_EQ(file->read(4), "");
    file->seek(3);
    EXPECT_EQ(file->read(2), "34");
}

TEST_F(SystemRipFilesTest, TellsWhyItCannotRead)
{
    EXPECT_EQ(codeOf([this] { return m_files.open(path()); }), std::errc::no_such_file_or_directory);
    const auto folder = m_files.open(m_folder.path());
    EXPECT_EQ(codeOf([&] { return folder->read(1); }), std::errc::is_a_directory);
    EXPECT_EQ(codeOf([&] {
                  folder->seek(-1);
                  return 0;
              }),
              std::errc::invalid_argument);
}

TEST_F(SystemRipFilesTest, MakesAFileForItsUserAlone)
{
    const auto file = m_files.create(path());
    file->write("01234");
    file->write("56789");
    EXPECT_EQ(test::readFile(path()), "0123456789");
    file->truncate(3);
    EXPECT_EQ(test::readFile(path()), "012");
    EXPECT_EQ(QFile::permissions(path()) &
                  (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
              QFile::Permissions());
}

TEST_F(SystemRipFilesTest, ReplacesNoFile)
{
    test::writeFile(path(), "mine");
    EXPECT_EQ(codeOf([this] { return m_files.create(path()); }), std::errc::file_exists);
    EXPECT_EQ(test::readFile(path()), "mine");
}

} // namespace tonearm
