// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Borrowed.h"
#include "helpers/Contents.h"
#include "support/FileDescriptor.h"
#include "tools/Scripts.h"
#include "tools/StartedRun.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>

#include <csignal>
#include <cstdint>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::run;

namespace {

// Signals 32 and 33, which the C library keeps for itself; it has every child that it spawns ignore them.
constexpr std::uint64_t signalsOfTheCLibrary = 0x180000000U;

// A set of signals as the system tells it in a process's status.
std::uint64_t signalsIn(const QByteArray &status, const QByteArray &field)
{
    constexpr int hexadecimal = 16;
    const qsizetype begin = status.indexOf(field);
    EXPECT_GE(begin, 0) << field.constData();
    bool isNumber = false;
    const qsizetype afterField = begin + field.size();
    const std::uint64_t signals = status.mid(afterField, status.indexOf('\n', begin) - afterField)
                                      .trimmed()
                                      .toULongLong(&isNumber, hexadecimal);
    EXPECT_TRUE(isNumber) << status.constData();
    return signals;
}

} // namespace

TEST(ProcessRunner, LetsTheChildInheritStandardInput)
{
    const test::Scripts scripts;
    test::writeFile(scripts.path(u"input"_s), "from the application\n");
    const test::BorrowedStandardInput input(scripts.path(u"input"_s));
    EXPECT_EQ(run(QUrl(u"file:///bin/cat"_s)).stdoutBytes, "from the application\n");
}

TEST(ProcessRunner, LetsTheChildInheritTheEnvironment)
{
    const test::Scripts scripts;
    const QUrl script = scripts.add(u"tool"_s, "printf '%s' \"${TONEARM_TEST_VALUE-unset}\"");
    {
        const test::BorrowedVariable variable("TONEARM_TEST_VALUE", "a value\nof two lines");
        EXPECT_EQ(run(script).stdoutBytes, "a value\nof two lines");
    }
    EXPECT_EQ(run(script).stdoutBytes, "unset");
}

TEST(ProcessRunner, LetsTheChildInheritTheWorkingDirectory)
{
    const QTemporaryDir folder;
    const test::BorrowedWorkingDirectory directory(folder.path());
    EXPECT_EQ(run(QUrl(u"file:///bin/pwd"_s), {u"-P"_s}).stdoutBytes,
              QFile::encodeName(QDir(folder.path()).canonicalPath()) + '\n');
}

TEST(ProcessRunner, LetsTheChildInheritNoOtherDescriptor)
{
    const int withoutCloseOnExec = ::open("/dev/null", O_RDONLY);
    const FileDescriptor open(withoutCloseOnExec);
    ASSERT_GE(withoutCloseOnExec, 3);
    // 3 is the folder that ls reads; a descriptor inherited on top would make it a fourth.
    EXPECT_EQ(run(QUrl(u"file:///bin/ls"_s), {u"/proc/self/fd"_s}).stdoutBytes, "0\n1\n2\n3\n");
}

TEST(ProcessRunner, StartsTheChildWithNoSignalBlockedOrIgnored)
{
    const test::BorrowedSignals signals(SIGPIPE, SIGTERM);
    const QByteArray status = run(QUrl(u"file:///bin/cat"_s), {u"/proc/self/status"_s}).stdoutBytes;
    EXPECT_EQ(signalsIn(status, "SigBlk:"), 0U);
    EXPECT_EQ(signalsIn(status, "SigIgn:") & ~signalsOfTheCLibrary, 0U);
}

TEST(ProcessRunner, GivesTheChildTwoSeparatePipes)
{
    const test::Scripts scripts;
    const QUrl script = scripts.add(u"tool"_s, "[ -p /dev/fd/1 ] && [ -p /dev/fd/2 ] && "
                                               "[ ! /dev/fd/1 -ef /dev/fd/2 ] && printf separate");
    EXPECT_EQ(run(script).stdoutBytes, "separate");
}

} // namespace tonearm
