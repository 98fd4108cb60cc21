// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/LaunchGate.h"

#include <gtest/gtest.h>

#include <fcntl.h>

#include <csignal>
#include <latch>
#include <thread>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

ChildProcess sleeper()
{
    const FileDescriptor nowhere(::open("/dev/null", O_WRONLY | O_CLOEXEC));
    return ChildProcess::launch(u"/bin/sleep"_s, {u"60"_s}, nowhere, nowhere);
}

} // namespace

TEST(LaunchGate, StartsWithoutACancellation)
{
    const LaunchGate gate;
    EXPECT_FALSE(gate.isCancelled());
}

TEST(LaunchGate, RemembersACancellationBeforeTheLaunch)
{
    LaunchGate gate;
    gate.cancel();
    EXPECT_TRUE(gate.isCancelled());
}

TEST(LaunchGate, EndsAChildThatIsStoredAfterTheCancellation)
{
    LaunchGate gate;
    gate.cancel();
    EXPECT_EQ(gate.store(sleeper()).wait(), SIGTERM);
}

TEST(LaunchGate, EndsAStoredChildAtTheCancellation)
{
    LaunchGate gate;
    const ChildProcess &child = gate.store(sleeper());
    gate.cancel();
    EXPECT_EQ(child.wait(), SIGTERM);
}

TEST(LaunchGate, LeavesAStoredChildAlone)
{
    LaunchGate gate;
    const ChildProcess &child = gate.store(sleeper());
    EXPECT_TRUE(child.isRunning());
    EXPECT_FALSE(gate.isCancelled());
    child.terminate();
    EXPECT_EQ(child.wait(), SIGTERM);
}

TEST(LaunchGate, CancelsAfterTheEndWithoutHarm)
{
    LaunchGate gate;
    const ChildProcess &child = gate.store(sleeper());
    child.terminate();
    EXPECT_EQ(child.wait(), SIGTERM);
    gate.cancel();
    EXPECT_TRUE(gate.isCancelled());
}

TEST(LaunchGate, EndsTheChildWhenTheTwoMeet)
{
    for (int attempt = 0; attempt < 200; ++attempt) {
        LaunchGate gate;
        ChildProcess child = sleeper();
        std::latch both(2);
        std::jthread canceller([&] {
            both.arrive_and_wait();
            gate.cancel();
        });
        both.arrive_and_wait();
        EXPECT_EQ(gate.store(std::move(child)).wait(), SIGTERM);
    }
}

} // namespace tonearm
