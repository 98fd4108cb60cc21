// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/LaunchRequest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

LaunchRequest read(const QStringList &arguments)
{
    return readLaunchRequest(QStringList{u"tonearm"_s} + arguments, u"/music"_s);
}

LaunchText textFor(const QStringList &arguments)
{
    return launchTextAskedFor(QStringList{u"tonearm"_s} + arguments);
}

LaunchRequest opening(const QString &path)
{
    return {.file = QUrl::fromLocalFile(path), .problem = {}};
}

} // namespace

TEST(LaunchRequest, NoArgumentOpensAnEmptyWindow)
{
    EXPECT_EQ(read({}), LaunchRequest());
}

TEST(LaunchRequest, AnEmptyArgumentOpensAnEmptyWindow)
{
    EXPECT_EQ(read({u""_s}), LaunchRequest());
}

TEST(LaunchRequest, AWholePathIsTakenAsItIs)
{
    EXPECT_EQ(read({u"/films/One & Two #1 100%.mkv"_s}), opening(u"/films/One & Two #1 100%.mkv"_s));
}

TEST(LaunchRequest, ARelativePathCountsFromTheCurrentFolder)
{
    EXPECT_EQ(read({u"album/disc.mkv"_s}), opening(u"/music/album/disc.mkv"_s));
    EXPECT_EQ(read({u"../disc.mkv"_s}), opening(u"/disc.mkv"_s));
}

TEST(LaunchRequest, ANameWithAColonIsAFileAndNoAddress)
{
    EXPECT_EQ(read({u"live: two.mkv"_s}), opening(u"/music/live: two.mkv"_s));
}

TEST(LaunchRequest, WhatFollowsTwoDashesIsAFile)
{
    EXPECT_EQ(read({u"--"_s, u"--version"_s}), opening(u"/music/--version"_s));
    EXPECT_EQ(textFor({u"--"_s, u"--version"_s}), LaunchText::none);
}

TEST(LaunchRequest, TwoFilesAreRefused)
{
    EXPECT_EQ(read({u"a.mkv"_s, u"b.mkv"_s}).problem, u"Only one file can be opened at a time."_s);
}

TEST(LaunchRequest, AnUnknownOptionIsRefusedByName)
{
    EXPECT_EQ(read({u"--louder"_s}).problem, u"Unknown option 'louder'."_s);
}

TEST(LaunchRequest, HelpAndVersionHaveALongAndAShortForm)
{
    EXPECT_EQ(textFor({u"--help"_s}), LaunchText::help);
    EXPECT_EQ(textFor({u"-h"_s}), LaunchText::help);
    EXPECT_EQ(textFor({u"--version"_s}), LaunchText::version);
    EXPECT_EQ(textFor({u"-v"_s}), LaunchText::version);
    EXPECT_EQ(textFor({u"disc.mkv"_s}), LaunchText::none);
}

TEST(LaunchRequest, AnOptionOfQtsIsNotTakenForOneOfOurs)
{
    EXPECT_EQ(textFor({u"-reverse"_s, u"-platform"_s, u"xcb"_s}), LaunchText::none);
    EXPECT_EQ(textFor({u"-platform"_s, u"xcb"_s, u"--version"_s}), LaunchText::version);
}

TEST(LaunchRequest, TheHelpNamesTheFileAndTheOptions)
{
    const QString help = launchHelpText();

    for (const QString &part : {u"[file]"_s, u"--help"_s, u"--version"_s, u".mkv"_s})
        EXPECT_TRUE(help.contains(part)) << part.toStdString();
}

} // namespace tonearm::test
