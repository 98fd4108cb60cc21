// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/StateFolder.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QDir>

#include <optional>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr const char *variable = "XDG_STATE_HOME";

struct StateFolderTest : testing::Test
{
    ~StateFolderTest() override
    {
        if (wasSet)
            qputenv(variable, before);
        else
            qunsetenv(variable);
    }

    bool wasSet = qEnvironmentVariableIsSet(variable);
    QByteArray before = qgetenv(variable);
};

} // namespace

TEST_F(StateFolderTest, LiesInTheUsersFolder)
{
    qunsetenv(variable);
    EXPECT_EQ(stateFolder(), QDir::homePath() + u"/.local/state"_s);
}

TEST_F(StateFolderTest, LiesWhereTheEnvironmentSays)
{
    qputenv(variable, "/elsewhere/state/");
    EXPECT_EQ(stateFolder(), u"/elsewhere/state"_s);
}

TEST_F(StateFolderTest, TakesNoRelativePath)
{
    qputenv(variable, "state");
    EXPECT_EQ(stateFolder(), QDir::homePath() + u"/.local/state"_s);
}

} // namespace tonearm
