// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/ProcessRunner.h"

#include "helpers/Await.h"
#include "helpers/Borrowed.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "tools/Scripts.h"

#include <gtest/gtest.h>

#include <csignal>
#include <limits>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QString description(const QString &command, std::int32_t status, const QString &stderrText)
{
    return ProcessRunnerError::nonZeroExit(command, status, stderrText).description();
}

} // namespace

TEST(ProcessRunner, LosesAChildThatCannotBeWaitedFor)
{
    const test::Scripts scripts;
    const QUrl tool = scripts.add(u"tool"_s, "echo started >&2; until [ -e $here/go ]; do sleep 0.01; done");
    const auto letGo = [&](const QString & /*line*/) { test::writeFile(scripts.path(u"go"_s), {}); };
    const test::BorrowedSignals ignored(SIGCHLD, SIGUSR1);
    const auto error = test::awaitError<LostChildError>(ProcessRunner().run(tool, {}, letGo, {}));
    ASSERT_TRUE(error.has_value());
    EXPECT_STRNE(error->what(), "");
}

TEST(ProcessRunnerError, NamesCommandAndStatus)
{
    EXPECT_EQ(description(u"ffmpeg"_s, 1, {}), u"ffmpeg exited with status 1."_s);
    EXPECT_EQ(description(u"ffmpeg"_s, -1, {}), u"ffmpeg exited with status -1."_s);
    EXPECT_EQ(description(u"ffmpeg"_s, std::numeric_limits<std::int32_t>::max(), {}),
              u"ffmpeg exited with status 2147483647."_s);
}

TEST(ProcessRunnerError, EndsAtTheFullStopWhenStderrIsOnlyWhiteSpace)
{
    EXPECT_EQ(description(u"ffprobe"_s, 187, u" \t\r\n\u00a0\u2028 \n"_s),
              u"ffprobe exited with status 187."_s);
}

TEST(ProcessRunnerError, QuotesStderrWithoutTheWhiteSpaceAtItsEnds)
{
    EXPECT_EQ(description(u"ffmpeg"_s, 8, u"\r\n  No such file.\n  Giving up. \n"_s),
              u"ffmpeg exited with status 8.\n\nNo such file.\n  Giving up."_s);
}

TEST(ProcessRunnerError, LeavesPlaceholdersInForeignWordsAlone)
{
    EXPECT_EQ(description(u"tool %2 %1"_s, 3, u"100%1"_s), u"tool %2 %1 exited with status 3.\n\n100%1"_s);
}

TEST(ProcessRunnerError, HasNoRecoverySuggestion)
{
    EXPECT_EQ(ProcessRunnerError::nonZeroExit(u"ffmpeg"_s, 1, u"text"_s).recoverySuggestion(), std::nullopt);
}

TEST(ProcessRunnerError, EqualsByAllThreeFields)
{
    const auto error = ProcessRunnerError::nonZeroExit(u"ffmpeg"_s, 1, u"text"_s);
    EXPECT_EQ(error, ProcessRunnerError::nonZeroExit(u"ffmpeg"_s, 1, u"text"_s));
    EXPECT_NE(error, ProcessRunnerError::nonZeroExit(u"ffprobe"_s, 1, u"text"_s));
    EXPECT_NE(error, ProcessRunnerError::nonZeroExit(u"ffmpeg"_s, 2, u"text"_s));
    EXPECT_NE(error, ProcessRunnerError::nonZeroExit(u"ffmpeg"_s, 1, u"text\n"_s));
}

} // namespace tonearm
