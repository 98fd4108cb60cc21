// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "tools/Census.h"
#include "tools/Scripts.h"
#include "tools/StartedRun.h"

#include <gtest/gtest.h>

#include <QFile>

#include <cerrno>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::errorOf;

namespace {

// What a run that can't be launched fails with, with and without a callback; it must leave nothing behind.
std::error_code launchErrorOf(const QUrl &program, const QStringList &arguments = {})
{
    const test::Census before = test::Census::take();
    const auto silent = errorOf<std::system_error>([&] { return test::run(program, arguments); });
    const auto told = errorOf<std::system_error>([&] {
        return test::run(program, arguments,
                         [](const QString &line) { ADD_FAILURE() << line.toStdString(); });
    });
    EXPECT_TRUE(test::holdsNoMoreThan(before));
    if (!silent || !told)
        return {};
    EXPECT_EQ(silent->code(), told->code());
    return silent->code();
}

std::error_code systemError(int number)
{
    return {number, std::generic_category()};
}

} // namespace

TEST(ProcessRunner, FailsWithTheLaunchErrorForAPathThatDoesNotExist)
{
    const test::Scripts scripts;
    EXPECT_EQ(launchErrorOf(QUrl::fromLocalFile(scripts.path(u"missing"_s))), systemError(ENOENT));
    EXPECT_EQ(launchErrorOf(QUrl()), systemError(ENOENT));
}

TEST(ProcessRunner, FailsWithTheLaunchErrorForAFolder)
{
    const test::Scripts scripts;
    EXPECT_EQ(launchErrorOf(QUrl::fromLocalFile(scripts.path(u"."_s))), systemError(EACCES));
}

TEST(ProcessRunner, FailsWithTheLaunchErrorForAFileThatIsNotExecutable)
{
    const test::Scripts scripts;
    test::writeFile(scripts.path(u"tool"_s), "#!/bin/sh\n");
    EXPECT_EQ(launchErrorOf(QUrl::fromLocalFile(scripts.path(u"tool"_s))), systemError(EACCES));
}

TEST(ProcessRunner, FailsWithTheLaunchErrorForAnEmptyFile)
{
    const test::Scripts scripts;
    test::writeFile(scripts.path(u"tool"_s), {});
    ASSERT_TRUE(QFile::setPermissions(scripts.path(u"tool"_s), QFile::ReadOwner | QFile::ExeOwner));
    EXPECT_EQ(launchErrorOf(QUrl::fromLocalFile(scripts.path(u"tool"_s))), systemError(ENOEXEC));
}

TEST(ProcessRunner, FailsWithTheLaunchErrorForAMissingInterpreter)
{
    const test::Scripts scripts;
    test::writeFile(scripts.path(u"tool"_s), "#!/no/such/interpreter\n");
    ASSERT_TRUE(QFile::setPermissions(scripts.path(u"tool"_s), QFile::ReadOwner | QFile::ExeOwner));
    EXPECT_EQ(launchErrorOf(QUrl::fromLocalFile(scripts.path(u"tool"_s))), systemError(ENOENT));
}

TEST(ProcessRunner, FailsWithTheLaunchErrorForTooLongAnArgumentList)
{
    constexpr qsizetype longerThanAnyArgument = 1000000;
    EXPECT_EQ(launchErrorOf(QUrl(u"file:///bin/true"_s), {QString(longerThanAnyArgument, u'x')}),
              systemError(E2BIG));
}

TEST(ProcessRunner, GivesALaunchErrorInTheSystemsOwnWords)
{
    const test::Scripts scripts;
    const auto error = errorOf<std::system_error>(
        [&] { return test::run(QUrl::fromLocalFile(scripts.path(u"missing"_s))); });
    ASSERT_TRUE(error.has_value());
    EXPECT_STREQ(error->what(), "No such file or directory");
}

} // namespace tonearm
