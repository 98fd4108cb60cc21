// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/ChildProcess.h"

#include "helpers/Await.h"
#include "tools/Census.h"
#include "tools/Scripts.h"

#include <gtest/gtest.h>

#include <QFile>

#include <fcntl.h>

#include <csignal>
#include <fstream>
#include <optional>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::eventually;

namespace {

ChildProcess launched(const QUrl &program, const QStringList &arguments = {})
{
    const FileDescriptor nowhere(::open("/dev/null", O_WRONLY | O_CLOEXEC));
    return ChildProcess::launch(program.toLocalFile(), arguments, nowhere, nowhere);
}

// A child that waits for a file and bears the given process number, which has become free; nothing where
// the kernel can't be asked to number it so. The child itself writes which number it got.
std::optional<ChildProcess> launchedAs(int number, const test::Scripts &scripts)
{
    constexpr int tries = 20; // somebody else may be quicker
    const QUrl program = scripts.add(u"bystander"_s, "echo $$ > $here/bystander.number\n"
                                                     "until [ -e $here/go ]; do sleep 0.01; done");
    for (int attempt = 0; attempt < tries; ++attempt) {
        QFile::remove(scripts.path(u"bystander.number"_s));
        std::ofstream("/proc/sys/kernel/ns_last_pid") << number - 1;
        ChildProcess child = launched(program);
        if (scripts.numberIn(u"bystander.number"_s) == number)
            return child;
        child.terminate();
        child.wait();
    }
    return std::nullopt;
}

} // namespace

TEST(ChildProcess, ReportsTheExitStatus)
{
    const test::Scripts scripts;
    EXPECT_EQ(launched(scripts.add(u"fine"_s, "exit 0")).wait(), 0);
    EXPECT_EQ(launched(scripts.add(u"failing"_s, "exit 255")).wait(), 255);
}

TEST(ChildProcess, ReportsTheNumberOfASignalThatEndedIt)
{
    const test::Scripts scripts;
    EXPECT_EQ(launched(scripts.add(u"killed"_s, "kill -KILL $$")).wait(), SIGKILL);
    EXPECT_EQ(launched(scripts.add(u"hungUp"_s, "kill -HUP $$")).wait(), SIGHUP);
}

TEST(ChildProcess, RunsUntilItHasExited)
{
    const test::Scripts scripts;
    const ChildProcess child =
        launched(scripts.add(u"waiting"_s, "until [ -e $here/go ]; do sleep 0.01; done"));
    EXPECT_TRUE(child.isRunning());
    scripts.touch(u"go"_s);
    EXPECT_TRUE(eventually([&] { return !child.isRunning(); }));
    EXPECT_EQ(child.wait(), 0);
    EXPECT_FALSE(child.isRunning());
}

TEST(ChildProcess, IsSentASigtermAndNoOtherSignal)
{
    const test::Scripts scripts;
    const ChildProcess child = launched(scripts.add(u"polite"_s, "trap 'exit 7' TERM\n"
                                                                 "trap 'exit 8' INT HUP QUIT\n"
                                                                 "echo $$ > $here/ready\n"
                                                                 "while :; do sleep 0.01; done"));
    EXPECT_GT(scripts.numberIn(u"ready"_s), 0);
    child.terminate();
    EXPECT_EQ(child.wait(), 7);
}

TEST(ChildProcess, HitsNobodyWhenItIsTerminatedAfterItsEnd)
{
    const test::Scripts scripts;
    const ChildProcess first = launched(scripts.add(u"first"_s, "echo $$ > $here/first.number"));
    EXPECT_EQ(first.wait(), 0);
    const int number = scripts.numberIn(u"first.number"_s);

    const std::optional<ChildProcess> bystander = launchedAs(number, scripts);
    if (!bystander)
        GTEST_SKIP() << "The kernel gave no other process the number (it takes the wish from root only).";
    first.terminate();
    scripts.touch(u"go"_s);
    EXPECT_EQ(bystander->wait(), 0);
}

} // namespace tonearm
