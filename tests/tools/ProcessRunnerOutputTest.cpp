// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "tools/Census.h"
#include "tools/Scripts.h"
#include "tools/StartedRun.h"

#include <gtest/gtest.h>

#include <csignal>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::errorOf;
using test::eventually;
using test::run;

namespace {

std::optional<ProcessRunnerError> failureOf(const QUrl &program)
{
    return errorOf<ProcessRunnerError>([&] { return run(program); });
}

} // namespace

TEST(ProcessRunner, ReturnsWhatTheChildWroteToEachPipe)
{
    const test::Scripts scripts;
    const auto result = run(scripts.add(u"tool"_s, "printf out; printf err >&2"));
    EXPECT_EQ(result.stdoutBytes, "out");
    EXPECT_EQ(result.stderrBytes, "err");
}

TEST(ProcessRunner, ReturnsNothingForASilentChild)
{
    EXPECT_EQ(run(QUrl(u"file:///bin/true"_s)), ProcessRunner::RunResult());
}

TEST(ProcessRunner, KeepsEveryByteAsItIs)
{
    const test::Scripts scripts;
    const QUrl script = scripts.add(u"tool"_s, R"(printf 'a\000\377\r\n'; printf '\303\r\n\n\000' >&2)");
    const auto result = run(script);
    EXPECT_EQ(result.stdoutBytes, QByteArray("a\0\xff\r\n", 5));
    EXPECT_EQ(result.stderrBytes, QByteArray("\xc3\r\n\n\0", 5));
}

TEST(ProcessRunner, ReturnsEveryByteOfAChildThatFloodsBothPipesAtOnce)
{
    const test::Scripts scripts;
    const QUrl script = scripts.add(u"tool"_s, "head -c 8388608 /dev/zero | tr '\\0' e >&2 &\n"
                                               "head -c 8388608 /dev/zero | tr '\\0' o\n"
                                               "wait");
    constexpr qsizetype bytes = 8388608;
    const auto silent = run(script);
    EXPECT_TRUE(silent.stdoutBytes == QByteArray(bytes, 'o'));
    EXPECT_TRUE(silent.stderrBytes == QByteArray(bytes, 'e'));
    const auto told = run(script, {}, [](const QString &) {});
    EXPECT_TRUE(told == silent);
}

TEST(ProcessRunner, HandsTheArgumentsOverLetterForLetter)
{
    const test::Scripts scripts;
    const QUrl script = scripts.add(u"tool"_s, "printf '<%s>' \"$@\"");
    const QStringList arguments{u""_s,           u"two words"_s, u"-n"_s,      u"\"quoted\" '$HOME' `id`"_s,
                                u"line\nfeed"_s, u"*"_s,         u"Ōkami é"_s, u"back\\slash"_s};
    EXPECT_EQ(QString::fromUtf8(run(script, arguments).stdoutBytes), u'<' + arguments.join(u"><"_s) + u'>');
}

TEST(ProcessRunner, FailsWithStatusAndStderrOfAChildThatFails)
{
    const test::Scripts scripts;
    const QUrl script = scripts.add(u"ffmpeg"_s, "echo ignored; echo ' Invalid data' >&2; exit 187");
    EXPECT_EQ(failureOf(script), ProcessRunnerError::nonZeroExit(u"ffmpeg"_s, 187, u" Invalid data\n"_s));
}

TEST(ProcessRunner, HasNoStderrTextForAFailureWhenItIsNotUtf8)
{
    const test::Scripts scripts;
    const QUrl script = scripts.add(u"ffmpeg"_s, R"(printf 'good\n\377' >&2; exit 1)");
    EXPECT_EQ(failureOf(script), ProcessRunnerError::nonZeroExit(u"ffmpeg"_s, 1, {}));
}

TEST(ProcessRunner, FailsWithTheNumberOfASignalThatEndedTheChild)
{
    const test::Scripts scripts;
    EXPECT_EQ(failureOf(scripts.add(u"killed"_s, "kill -KILL $$")),
              ProcessRunnerError::nonZeroExit(u"killed"_s, SIGKILL, {}));
    EXPECT_EQ(failureOf(scripts.add(u"ended"_s, "kill -TERM $$")),
              ProcessRunnerError::nonZeroExit(u"ended"_s, SIGTERM, {}));
}

TEST(ProcessRunner, NamesACommandByItsLastPathComponent)
{
    const test::Scripts scripts;
    const QUrl script = scripts.add(u"50% #1 tool?"_s, "exit 1");
    EXPECT_EQ(failureOf(script), ProcessRunnerError::nonZeroExit(u"50% #1 tool?"_s, 1, {}));
}

TEST(ProcessRunner, WaitsForAGrandchildThatHoldsThePipesOpen)
{
    const test::Scripts scripts;
    const QUrl script = scripts.add(u"tool"_s, "echo $$ > $here/number\n"
                                               "(until [ -e $here/go ]; do sleep 0.01; done; printf late) &");
    test::StartedRun started(script);
    const int child = scripts.numberIn(u"number"_s);
    ASSERT_TRUE(eventually([&] { return test::stateOf(child) == 'Z'; }));
    EXPECT_FALSE(started.hasEnded());
    scripts.touch(u"go"_s);
    EXPECT_EQ(started.outcome().stdoutBytes, "late");
}

TEST(ProcessRunner, WaitsForAChildThatHasClosedItsPipes)
{
    const test::Scripts scripts;
    const QUrl script = scripts.add(u"tool"_s, "printf early\n"
                                               "exec >/dev/null 2>&1\n"
                                               "echo $$ > $here/number\n"
                                               "until [ -e $here/go ]; do sleep 0.01; done\n"
                                               "exit 3");
    test::StartedRun started(script);
    EXPECT_GT(scripts.numberIn(u"number"_s), 0);
    EXPECT_FALSE(started.hasEnded());
    scripts.touch(u"go"_s);
    EXPECT_EQ(errorOf<ProcessRunnerError>([&] { return started.outcome(); }),
              ProcessRunnerError::nonZeroExit(u"tool"_s, 3, {}));
}

} // namespace tonearm
