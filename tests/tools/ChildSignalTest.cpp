// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/ChildSignal.h"

#include "helpers/Borrowed.h"
#include "tools/StartedRun.h"

#include <gtest/gtest.h>

#include <csignal>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::run;

TEST(ChildSignal, LetsToolsRunWhereTheParentIgnoredItsChildren)
{
    const QStringList words{u"done"_s};
    const QUrl tool(u"file:///bin/echo"_s);
    const test::BorrowedSignals ignored(SIGCHLD, SIGUSR1);
    EXPECT_THROW(run(tool, words), std::system_error);
    restoreChildSignal();
    EXPECT_EQ(run(tool, words).stdoutBytes, "done\n");
}

} // namespace tonearm
