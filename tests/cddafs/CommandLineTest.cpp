// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/CommandLine.h"

#include "helpers/Await.h"

#include <gtest/gtest.h>

namespace tonearm {

namespace {

std::string complaintOf(const QList<QByteArray> &arguments)
{
    const auto error = test::errorOf<UsageError>([&] { return parseCommandLine(arguments); });
    return error ? error->what() : "accepted";
}

} // namespace

TEST(CommandLine, TakesADiscAndAMountPoint)
{
    EXPECT_EQ(parseCommandLine({"/dev/sr0", "/mnt"}),
              (CommandLine{.disc = "/dev/sr0", .mountPoint = "/mnt"}));
}

TEST(CommandLine, TakesAFolderToMakeTheMountPointIn)
{
    EXPECT_EQ(parseCommandLine({"--in", "/run/discs", "a.cue"}),
              (CommandLine{.disc = "a.cue", .parentFolder = "/run/discs"}));
}

TEST(CommandLine, TakesWhatEndsIt)
{
    EXPECT_EQ(parseCommandLine({"a.cue", "--parent", "4711", "/mnt"}),
              (CommandLine{.disc = "a.cue", .mountPoint = "/mnt", .parentProcess = 4711}));
    EXPECT_EQ(parseCommandLine({"--background", "a.cue", "/mnt"}),
              (CommandLine{.disc = "a.cue", .mountPoint = "/mnt", .isBackground = true}));
}

TEST(CommandLine, TakesNoOptionsBehindTwoDashes)
{
    EXPECT_EQ(parseCommandLine({"--", "--in", "--help"}),
              (CommandLine{.disc = "--in", .mountPoint = "--help"}));
}

TEST(CommandLine, NeedsNothingElseToTellAboutItself)
{
    EXPECT_EQ(parseCommandLine({"--help"}), CommandLine{.task = CommandLine::Task::showHelp});
    EXPECT_EQ(parseCommandLine({"--version"}), CommandLine{.task = CommandLine::Task::showVersion});
}

TEST(CommandLine, RefusesWhatMakesNoSense)
{
    const std::string incomplete = "A disc and a place for it are needed.";
    EXPECT_EQ(complaintOf({}), incomplete);
    EXPECT_EQ(complaintOf({"a.cue"}), incomplete);
    EXPECT_EQ(complaintOf({"a.cue", ""}), incomplete);
    EXPECT_EQ(complaintOf({"a.cue", "/mnt", "/mnt"}), incomplete);
    EXPECT_EQ(complaintOf({"--in", "/run", "a.cue", "/mnt"}), incomplete);
    EXPECT_EQ(complaintOf({"a.cue", "--in"}), "--in needs a value.");
    EXPECT_EQ(complaintOf({"--parent", "x", "a.cue", "/mnt"}), "--parent needs the number of a process.");
    EXPECT_EQ(complaintOf({"--parent", "0", "a.cue", "/mnt"}), "--parent needs the number of a process.");
    EXPECT_EQ(complaintOf({"--parent", "1", "--background", "a.cue", "/mnt"}),
              "--background and --parent exclude each other.");
    EXPECT_EQ(complaintOf({"-f", "a.cue", "/mnt"}), "There is no option -f.");
}

} // namespace tonearm
