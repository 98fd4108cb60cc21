// SPDX-License-Identifier: GPL-3.0-or-later
#include "audiotools/AudioTools.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "support/Digest.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QRegularExpression>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

class BuiltTools : public testing::TestWithParam<std::string>
{
protected:
    void SetUp() override
    {
        if (!areShippedToolsBuilt())
            GTEST_SKIP() << "the shipped ffmpeg and ffprobe are links to the system's: "
                         << noticeField(shippedNotice(), u"Reason"_s).toStdString();
    }

    static QString name() { return QString::fromStdString(GetParam()); }

    static QString path() { return shippedTool(name()); }
};

} // namespace

TEST_P(BuiltTools, AreTheFilesThatTheNoticeTellsOf)
{
    EXPECT_FALSE(QFileInfo(path()).isSymLink());
    const QString line = u' ' + sha256Hex(readFile(path())) + u"  "_s + name() + u'\n';
    EXPECT_TRUE(shippedNotice().contains(line)) << "no line" << line.toStdString();
}

TEST_P(BuiltTools, HoldNothingButTheNeededComponents)
{
    const QString configuration = buildConfiguration(path());
    EXPECT_TRUE(configuration.contains(u"--disable-everything"_s));
    EXPECT_TRUE(configuration.contains(u"--disable-network"_s));
    const QRegularExpression enabled(
        u"--enable-(?:demuxer|muxer|decoder|encoder|parser|filter|bsf|protocol)="_s);
    EXPECT_EQ(configuration.count(enabled), neededComponents().size());
}

TEST_P(BuiltTools, NeedNoSharedLibrary)
{
    const ProgramRun run = runProgram(u"readelf"_s, {u"--wide"_s, u"--dynamic"_s, path()});
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_TRUE(run.output.contains("Dynamic section")) << run.output.toStdString();
    EXPECT_FALSE(run.output.contains("(NEEDED)")) << run.output.toStdString();
}

// A program bound to one address would be told as EXEC.
TEST_P(BuiltTools, CanBeLoadedAtAnyAddress)
{
    const ProgramRun run = runProgram(u"readelf"_s, {u"--file-header"_s, path()});
    EXPECT_TRUE(run.output.contains("DYN ")) << run.output.toStdString();
}

TEST_P(BuiltTools, TellTheVersionOfTheirSource)
{
    const QString version = noticeField(shippedNotice(), u"Version"_s);
    ASSERT_FALSE(version.isEmpty());
    const QString withoutEpoch = version.section(u':', -1);
    const ProgramRun run = runProgram(path(), {u"-version"_s});
    const QString expected = name() + u" version "_s + withoutEpoch + u' ';
    EXPECT_EQ(QString::fromUtf8(run.output).first(expected.size()), expected);
}

INSTANTIATE_TEST_SUITE_P(AudioTools, BuiltTools, testing::Values("ffmpeg", "ffprobe"),
                         [](const auto &test) { return test.param; });

TEST(ShippedTools, AreAllThere)
{
    for (const QString &name : {u"ffmpeg"_s, u"ffprobe"_s, u"cd-paranoia"_s})
        EXPECT_TRUE(QFileInfo(shippedTool(name)).isExecutable()) << name.toStdString();
}

TEST(ShippedTools, StartAndTellTheirVersion)
{
    EXPECT_TRUE(runProgram(shippedTool(u"ffmpeg"_s), {u"-version"_s}).output.startsWith("ffmpeg version "));
    EXPECT_TRUE(runProgram(shippedTool(u"ffprobe"_s), {u"-version"_s}).output.startsWith("ffprobe version "));
    const ProgramRun paranoia = runProgram(shippedTool(u"cd-paranoia"_s), {u"--version"_s});
    EXPECT_EQ(paranoia.exitCode, 0);
    const QByteArray text = paranoia.output + paranoia.errors;
    EXPECT_TRUE(text.contains("paranoia")) << text.toStdString();
}

} // namespace tonearm::test
