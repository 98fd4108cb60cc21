// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/ChildSignal.h"

#include "helpers/Borrowed.h"
#include "tools/StartedRun.h"

#include <gtest/gtest.h>

#include <csignal>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::run;

TEST(ChildSignal, LetsToolsRunWhereTheParentIgnoredItsChildren)
{
    const QStringList words{u"done"_s};
    const QUrl tool(u"file:///bin/echo"_s);
    const test::BorrowedSignals ignored(SIGCHLD, SIGUSR1);
    // It is lost while it is started, or when its end is waited for.
    EXPECT_ANY_THROW(run(tool, words));
    restoreChildSignal();
    EXPECT_EQ(run(tool, words).stdoutBytes, "done\n");
}

} // namespace tonearm
