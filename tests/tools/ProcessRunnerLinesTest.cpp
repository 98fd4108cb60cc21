// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "support/SerialExecutor.h"
#include "tools/Scripts.h"
#include "tools/StartedRun.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QThread>

#include <atomic>
#include <chrono>
#include <mutex>
#include <set>
#include <thread>

namespace tonearm {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::errorOf;
using test::eventually;
using test::run;

namespace {

struct Told
{
    ProcessRunner::RunResult result;
    QStringList lines;
};

Told told(const QUrl &program)
{
    Told all;
    all.result = run(program, {}, [&](const QString &line) { all.lines << line; });
    return all;
}

} // namespace

TEST(ProcessRunner, DeliversProgressThatOverwritesItselfLineByLine)
{
    const test::Scripts scripts;
    const Told all = told(scripts.add(u"tool"_s, R"(printf '10%%\r20%%\r30%%' >&2)"));
    EXPECT_EQ(all.lines, (QStringList{u"10%"_s, u"20%"_s, u"30%"_s}));
    EXPECT_EQ(all.result.stderrBytes, "10%\r20%\r30%");
}

TEST(ProcessRunner, DeliversNoEmptyLineBetweenCarriageReturnAndLineFeed)
{
    const test::Scripts scripts;
    const Told all = told(scripts.add(u"tool"_s, R"(printf 'one\r\ntwo\r\n' >&2)"));
    EXPECT_EQ(all.lines, (QStringList{u"one"_s, u"two"_s}));
    EXPECT_EQ(all.result.stderrBytes, "one\r\ntwo\r\n");
}

TEST(ProcessRunner, DropsLinesThatAreNotUtf8ButKeepsTheirBytes)
{
    const test::Scripts scripts;
    const Told all = told(scripts.add(u"tool"_s, R"(printf 'caf\303\251\nbad \377\nend\303' >&2)"));
    EXPECT_EQ(all.lines, QStringList{u"café"_s});
    EXPECT_EQ(all.result.stderrBytes, "caf\xc3\xa9\n"
                                      "bad \xff\n"
                                      "end\xc3");
}

TEST(ProcessRunner, NeverDeliversStdout)
{
    const test::Scripts scripts;
    const Told all = told(scripts.add(u"tool"_s, "echo out; echo err >&2"));
    EXPECT_EQ(all.lines, QStringList{u"err"_s});
    EXPECT_EQ(all.result.stdoutBytes, "out\n");
}

TEST(ProcessRunner, DeliversTheLinesOfAChildThatFails)
{
    const test::Scripts scripts;
    QStringList lines;
    const auto error = errorOf<ProcessRunnerError>([&] {
        return run(scripts.add(u"tool"_s, "printf 'one\ntwo' >&2; exit 1"), {},
                   [&](const QString &line) { lines << line; });
    });
    EXPECT_EQ(error, ProcessRunnerError::nonZeroExit(u"tool"_s, 1, u"one\ntwo"_s));
    EXPECT_EQ(lines, (QStringList{u"one"_s, u"two"_s}));
}

TEST(ProcessRunner, DeliversALineWhileTheChildWorks)
{
    const test::Scripts scripts;
    std::atomic<int> lines = 0;
    test::StartedRun started(
        scripts.add(u"tool"_s, "echo started >&2; until [ -e $here/go ]; do sleep 0.01; done"), {},
        [&](const QString &) { ++lines; });
    EXPECT_TRUE(eventually([&] { return lines == 1; }));
    EXPECT_FALSE(started.hasEnded());
    scripts.touch(u"go"_s);
    EXPECT_EQ(started.outcome().stderrBytes, "started\n");
}

TEST(ProcessRunner, DeliversTheLastLineAtTheEndOfStderrEvenWhileStdoutIsOpen)
{
    const test::Scripts scripts;
    std::atomic<int> lines = 0;
    test::StartedRun started(scripts.add(u"tool"_s, "printf unfinished >&2; exec 2>/dev/null\n"
                                                    "until [ -e $here/go ]; do sleep 0.01; done"),
                             {}, [&](const QString &) { ++lines; });
    EXPECT_TRUE(eventually([&] { return lines == 1; }));
    EXPECT_FALSE(started.hasEnded());
    scripts.touch(u"go"_s);
    EXPECT_EQ(started.outcome().stderrBytes, "unfinished");
}

TEST(ProcessRunner, CallsBackOnAnotherThreadOneCallAtATimeInOrder)
{
    const test::Scripts scripts;
    const QUrl script =
        scripts.add(u"tool"_s, "i=0; while [ $i -lt 2000 ]; do i=$((i+1)); echo $i; done >&2");
    std::atomic<int> inside = 0;
    std::atomic<bool> overlapped = false;
    std::set<std::thread::id> threads; // touched in the callback only, then after the run's end
    QStringList lines;
    const auto result = run(script, {}, [&](const QString &line) {
        overlapped = overlapped || ++inside != 1;
        threads.insert(std::this_thread::get_id());
        lines << line;
        --inside;
    });
    EXPECT_EQ(result.stderrBytes, lines.join(u'\n').toUtf8() + '\n');
    EXPECT_EQ(lines.size(), 2000);
    EXPECT_FALSE(overlapped);
    EXPECT_FALSE(threads.contains(std::this_thread::get_id()));
}

TEST(ProcessRunner, HasMadeEveryCallBeforeTheRunEnds)
{
    const test::Scripts scripts;
    std::atomic<int> calls = 0;
    const auto slowly = [&](const QString &) {
        std::this_thread::sleep_for(2ms);
        ++calls;
    };
    run(scripts.add(u"fine"_s, "i=0; while [ $i -lt 50 ]; do i=$((i+1)); echo $i; done >&2"), {}, slowly);
    EXPECT_EQ(calls, 50);
    EXPECT_TRUE(errorOf<ProcessRunnerError>(
        [&] { return run(scripts.add(u"failing"_s, "echo one >&2; echo two >&2; exit 1"), {}, slowly); }));
    EXPECT_EQ(calls, 52);
}

TEST(ProcessRunner, ReadsStdoutOnWhileACallbackTakesItsTime)
{
    const test::Scripts scripts;
    const QUrl script = scripts.add(u"tool"_s, "echo line >&2\n"
                                               "head -c 1000000 /dev/zero\n"
                                               ": > $here/written");
    const QString written = scripts.path(u"written"_s);
    bool sawAllWritten = false;
    const auto result = run(script, {}, [&](const QString &) {
        const auto end = std::chrono::steady_clock::now() + 10s;
        while (!QFile::exists(written) && std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(1ms);
        sawAllWritten = QFile::exists(written);
    });
    EXPECT_TRUE(sawAllWritten);
    EXPECT_EQ(result.stdoutBytes.size(), 1000000);
}

TEST(ProcessRunner, ResumesTheCallerOnItsOwnThread)
{
    SerialExecutor executor(u"caller"_s);
    const auto flow = [&]() -> QCoro::Task<bool> {
        QThread *const caller = QThread::currentThread();
        const QUrl program(u"file:///bin/true"_s);
        const QStringList noArguments;
        co_await ProcessRunner().run(program, noArguments, {}, std::stop_token());
        co_return QThread::currentThread() == caller;
    };
    EXPECT_TRUE(test::await(flow()));
    EXPECT_TRUE(test::await(executor.run(flow)));
}

} // namespace tonearm
