// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/CDParanoiaInstallation.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "support/ResourceFolder.h"
#include "tools/Scripts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::await;
using test::errorOf;
using test::eventually;

namespace {

// A resource folder without cd-paranoia at first.
class CDParanoiaInstallationTest : public testing::Test
{
protected:
    CDParanoiaInstallationTest() { EXPECT_TRUE(QDir(m_folder.path()).mkdir(u"bin"_s)); }

    ToolLocation tools() const { return ToolLocation(m_folder.path()); }

    QString path() const { return m_folder.path() + u"/bin/cd-paranoia"_s; }

    static bool isMissing(const ToolLocation &tools)
    {
        return errorOf<CDParanoiaNotFoundError>([&] { return CDParanoiaInstallation::locate(tools); })
            .has_value();
    }

private:
    QTemporaryDir m_folder;
};

std::optional<QString> summaryOf(const QUrl &program, std::stop_token stop = {})
{
    return await(CDParanoiaInstallation::versionSummaryOf(program, ProcessRunner(), stop));
}

} // namespace

TEST_F(CDParanoiaInstallationTest, IsTheExecutableFileInTheToolFolder)
{
    test::writeScript(path(), "exit 0");
    EXPECT_EQ(CDParanoiaInstallation::locate(tools()), QUrl::fromLocalFile(path()));
    EXPECT_TRUE(CDParanoiaInstallation::isAvailable(tools()));
}

TEST_F(CDParanoiaInstallationTest, IsMissingWhenItIsNotThere)
{
    EXPECT_TRUE(isMissing(tools()));
    EXPECT_FALSE(CDParanoiaInstallation::isAvailable(tools()));
}

TEST_F(CDParanoiaInstallationTest, IsMissingWhenItIsNotExecutable)
{
    test::writeFile(path(), "#!/bin/sh\n");
    EXPECT_TRUE(isMissing(tools()));
    EXPECT_FALSE(CDParanoiaInstallation::isAvailable(tools()));
}

TEST_F(CDParanoiaInstallationTest, IsMissingWithoutAResourceFolder)
{
    EXPECT_TRUE(isMissing(ToolLocation(std::nullopt)));
    EXPECT_FALSE(CDParanoiaInstallation::isAvailable(ToolLocation(std::nullopt)));
}

TEST_F(CDParanoiaInstallationTest, IsNotStartedToSeeWhetherItIsThere)
{
    test::writeScript(path(), ": > \"$0.ran\"");
    EXPECT_TRUE(CDParanoiaInstallation::isAvailable(tools()));
    EXPECT_FALSE(QFile::exists(path() + u".ran"_s));
}

TEST_F(CDParanoiaInstallationTest, TellsTheVersionOfTheToolThatShipsWithTheApplication)
{
    const std::optional<QString> resources = resourceFolder();
    ASSERT_TRUE(resources.has_value());
    const std::optional<QString> summary = summaryOf(CDParanoiaInstallation::locate(ToolLocation(resources)));
    ASSERT_TRUE(summary.has_value());
    EXPECT_THAT(summary->toStdString(), testing::MatchesRegex("cd-?paranoia .*[0-9]+\\.[0-9]+[^ ]*"));
}

TEST(CDParanoiaVersion, IsAskedWithASingleArgument)
{
    const test::Scripts scripts;
    EXPECT_EQ(summaryOf(scripts.add(u"cd-paranoia"_s, "printf '%s' $# \"$@\"")), u"1--version"_s);
}

TEST(CDParanoiaVersion, IsReadFromStdoutAndStderrInThatOrder)
{
    const test::Scripts scripts;
    EXPECT_EQ(summaryOf(scripts.add(u"errors"_s, "echo 'cd-paranoia 10.2+2.0.1 libcdio 2.1.0' >&2")),
              u"cd-paranoia 10.2+2.0.1"_s);
    EXPECT_EQ(summaryOf(scripts.add(u"both"_s, "echo second >&2; echo; echo first")), u"first"_s);
}

TEST(CDParanoiaVersion, IsAbsentWhenTheToolFails)
{
    const test::Scripts scripts;
    EXPECT_EQ(summaryOf(scripts.add(u"failing"_s, "echo 'cd-paranoia 10.2'; exit 1")), std::nullopt);
    EXPECT_EQ(summaryOf(QUrl::fromLocalFile(scripts.path(u"missing"_s))), std::nullopt);
}

TEST(CDParanoiaVersion, IsAbsentWhenTheToolSaysNothingReadable)
{
    const test::Scripts scripts;
    EXPECT_EQ(summaryOf(scripts.add(u"silent"_s, "exit 0")), std::nullopt);
    EXPECT_EQ(summaryOf(scripts.add(u"blank"_s, "echo; echo '  '")), std::nullopt);
    EXPECT_EQ(summaryOf(scripts.add(u"foreign"_s, R"(echo 'cd-paranoia 10.2'; printf '\377')")),
              std::nullopt);
}

TEST(CDParanoiaVersion, IsAbsentWhenCancelled)
{
    const test::Scripts scripts;
    std::stop_source stop;
    const QUrl script = scripts.add(u"slow"_s, ": > $here/started; exec sleep 60");
    auto summary = CDParanoiaInstallation::versionSummaryOf(script, ProcessRunner(), stop.get_token());
    EXPECT_TRUE(eventually([&] { return scripts.has(u"started"_s); }));
    stop.request_stop();
    EXPECT_EQ(await(std::move(summary)), std::nullopt);
}

TEST(CDParanoiaInstallation, EqualsByBothFields)
{
    const QUrl one(u"file:///one"_s);
    const CDParanoiaInstallation installation{one, u"cd-paranoia 10.2"_s};
    EXPECT_EQ(installation, (CDParanoiaInstallation{one, u"cd-paranoia 10.2"_s}));
    EXPECT_NE(installation, (CDParanoiaInstallation{QUrl(), u"cd-paranoia 10.2"_s}));
    EXPECT_NE(installation, (CDParanoiaInstallation{one, std::nullopt}));
}

TEST(CDParanoiaNotFoundError, TellsWhatToDo)
{
    const CDParanoiaNotFoundError error;
    EXPECT_EQ(error.description(), u"cd-paranoia could not be found."_s);
    EXPECT_EQ(error.recoverySuggestion(),
              u"cd-paranoia ships inside Tonearm, so this copy of the app looks damaged. "
              "Replacing it with a fresh download should restore secure ripping."_s);
    EXPECT_EQ(error, CDParanoiaNotFoundError());
}

} // namespace tonearm
