// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Await.h"
#include "helpers/Borrowed.h"
#include "helpers/Contents.h"
#include "support/Cancellation.h"
#include "tools/Census.h"
#include "tools/Scripts.h"
#include "tools/StartedRun.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::eventually;

namespace {

bool endsCancelledBeforeItsStart(const QUrl &program)
{
    std::stop_source stop;
    stop.request_stop();
    return test::awaitError<CancellationError>(ProcessRunner().run(program, {}, {}, stop.get_token()))
        .has_value();
}

// Instants from before the launch until well after it.
class RandomInstants
{
public:
    std::chrono::microseconds next() { return std::chrono::microseconds(m_delay(m_random)); }

private:
    std::mt19937 m_random{20240501};
    std::uniform_int_distribution<int> m_delay{0, 2500};
};

// Cancels a run from another thread after a while.
std::jthread cancelling(test::StartedRun &started, std::chrono::microseconds delay)
{
    return std::jthread([&started, delay] {
        std::this_thread::sleep_for(delay);
        started.cancel();
    });
}

} // namespace

TEST(ProcessRunner, StartsNothingWhenCancelledBefore)
{
    const test::Scripts scripts;
    EXPECT_TRUE(endsCancelledBeforeItsStart(scripts.add(u"tool"_s, ": > $here/started")));
    EXPECT_TRUE(endsCancelledBeforeItsStart(QUrl(u"file:///no/such/program"_s)));
    EXPECT_FALSE(scripts.has(u"started"_s));
}

TEST(ProcessRunner, EndsTheChildWhenCancelled)
{
    const test::Scripts scripts;
    test::StartedRun started(scripts.add(u"tool"_s, "echo $$ > $here/number; exec sleep 60"));
    const int child = scripts.numberIn(u"number"_s);
    started.cancel();
    EXPECT_TRUE(started.endsCancelled());
    EXPECT_EQ(test::stateOf(child), '\0');
}

TEST(ProcessRunner, CanBeCancelledWhileItDeliversLines)
{
    const test::Scripts scripts;
    std::atomic<int> lines = 0;
    test::StartedRun started(scripts.add(u"tool"_s, "while :; do echo line >&2; done"), {},
                             [&](const QString &) { ++lines; });
    EXPECT_TRUE(eventually([&] { return lines > 100; }));
    started.cancel();
    EXPECT_TRUE(started.endsCancelled());
}

TEST(ProcessRunner, CanBeCancelledFromItsOwnCallback)
{
    const test::Scripts scripts;
    std::atomic<test::StartedRun *> self = nullptr;
    const QUrl script =
        scripts.add(u"tool"_s, "until [ -e $here/go ]; do sleep 0.01; done; echo line >&2; exec sleep 60");
    test::StartedRun started(script, {}, [&self](const QString &) { self.load()->cancel(); });
    self = &started;
    scripts.touch(u"go"_s);
    EXPECT_TRUE(started.endsCancelled());
}

TEST(ProcessRunner, FailsWithTheCancellationWhenTheChildTakesItWellAndExitsWith0)
{
    const test::Scripts scripts;
    test::StartedRun started(scripts.add(u"tool"_s, "trap 'echo done; exit 0' TERM\n"
                                                    "echo $$ > $here/number\n"
                                                    "while :; do sleep 0.01; done"));
    EXPECT_GT(scripts.numberIn(u"number"_s), 0);
    started.cancel();
    EXPECT_TRUE(started.endsCancelled());
}

TEST(ProcessRunner, FailsWithTheCancellationWhenTheChildFails)
{
    const test::Scripts scripts;
    test::StartedRun started(scripts.add(u"tool"_s, "trap 'echo broken >&2; exit 9' TERM\n"
                                                    "echo $$ > $here/number\n"
                                                    "while :; do sleep 0.01; done"));
    EXPECT_GT(scripts.numberIn(u"number"_s), 0);
    started.cancel();
    EXPECT_TRUE(started.endsCancelled());
}

TEST(ProcessRunner, FailsWithTheCancellationWhenTheChildCannotBeWaitedFor)
{
    const test::Scripts scripts;
    const test::BorrowedSignals ignored(SIGCHLD, SIGUSR1);
    test::StartedRun started(scripts.add(u"tool"_s, "echo $$ > $here/number; exec sleep 60"));
    EXPECT_GT(scripts.numberIn(u"number"_s), 0);
    started.cancel();
    EXPECT_TRUE(started.endsCancelled());
}

TEST(ProcessRunner, FailsWithACancellationBetweenTheChildsGoodExitAndTheEndOfItsPipes)
{
    const test::Scripts scripts;
    test::StartedRun started(scripts.add(u"tool"_s, "echo $$ > $here/number\n"
                                                    "(until [ -e $here/go ]; do sleep 0.01; done) &"));
    const int child = scripts.numberIn(u"number"_s);
    ASSERT_TRUE(eventually([&] { return test::stateOf(child) == 'Z'; }));
    started.cancel();
    scripts.touch(u"go"_s);
    EXPECT_TRUE(started.endsCancelled());
}

TEST(ProcessRunner, SignalsTheChildAloneAndWaitsForWhoHoldsThePipes)
{
    const test::Scripts scripts;
    const QUrl script =
        scripts.add(u"tool"_s, "(until [ -e $here/go ]; do sleep 0.01; done; : > $here/survived) &\n"
                               "echo $$ > $here/number\n"
                               "wait");
    test::StartedRun started(script);
    const int child = scripts.numberIn(u"number"_s);
    started.cancel();
    ASSERT_TRUE(eventually([&] { return test::stateOf(child) == 'Z'; }));
    EXPECT_FALSE(started.hasEnded());
    scripts.touch(u"go"_s);
    EXPECT_TRUE(started.endsCancelled());
    EXPECT_TRUE(scripts.has(u"survived"_s));
}

TEST(ProcessRunner, WaitsForAChildThatIgnoresTheSignalForAsLongAsItLives)
{
    const test::Scripts scripts;
    test::StartedRun started(scripts.add(u"tool"_s, "trap '' TERM\n"
                                                    "echo $$ > $here/number\n"
                                                    "while :; do printf . >> $here/beats; sleep 0.01; done"));
    const int child = scripts.numberIn(u"number"_s);
    ASSERT_TRUE(eventually([&] { return scripts.has(u"beats"_s); }));
    started.cancel();
    const qsizetype beats = test::readFile(scripts.path(u"beats"_s)).size();
    EXPECT_TRUE(eventually([&] { return test::readFile(scripts.path(u"beats"_s)).size() >= beats + 10; }));
    EXPECT_FALSE(started.hasEnded());
    ::kill(child, SIGKILL);
    EXPECT_TRUE(started.endsCancelled());
}

TEST(ProcessRunner, KeepsTheResultWhenCancelledAfterTheEnd)
{
    const test::Scripts scripts;
    test::StartedRun started(scripts.add(u"tool"_s, "printf done"));
    EXPECT_EQ(started.outcome().stdoutBytes, "done");
    started.cancel();
    EXPECT_EQ(started.outcome().stdoutBytes, "done");
}

TEST(ProcessRunner, LosesNoCancellationThatComesAtAnyInstantOfTheLaunch)
{
    const test::Census before = test::Census::take();
    RandomInstants instants;
    const QUrl program(u"file:///bin/sleep"_s);
    for (int attempt = 0; attempt < 400; ++attempt) {
        test::StartedRun started(program, {u"300"_s});
        const std::jthread canceller = cancelling(started, instants.next());
        EXPECT_TRUE(started.endsCancelled());
    }
    EXPECT_TRUE(test::holdsNoMoreThan(before));
}

TEST(ProcessRunner, EndsWithAResultOrTheCancellationWhenTheTwoMeet)
{
    const test::Census before = test::Census::take();
    RandomInstants instants;
    const QUrl program(u"file:///bin/echo"_s);
    constexpr int runs = 400;
    int cancelled = 0;
    int finished = 0;
    for (int attempt = 0; attempt < runs; ++attempt) {
        test::StartedRun started(program, {u"done"_s});
        const std::jthread canceller = cancelling(started, instants.next());
        try {
            finished += started.outcome().stdoutBytes == "done\n" ? 1 : 0;
        } catch (const CancellationError &) {
            ++cancelled;
        }
    }
    EXPECT_EQ(cancelled + finished, runs);
    EXPECT_TRUE(test::holdsNoMoreThan(before));
}

} // namespace tonearm
