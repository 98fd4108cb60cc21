// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/FFmpegInstallation.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "support/ResourceFolder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::await;
using test::awaitError;
using test::eventually;

namespace {

// A resource folder whose tools are scripts. Each tells in the file "<name>.ran" what it was called with.
class FFmpegInstallationTest : public testing::Test
{
protected:
    FFmpegInstallationTest() { EXPECT_TRUE(QDir(m_folder.path()).mkdir(u"bin"_s)); }

    QString pathOf(const QString &name) const { return m_folder.path() + u"/bin/"_s + name; }

    void addTool(const QString &name, const QByteArray &body) const
    {
        test::writeScript(pathOf(name), "echo \"$@\" > \"$0.ran\"\n" + body);
    }

    bool hasRun(const QString &name) const { return QFile::exists(pathOf(name + u".ran"_s)); }

    QCoro::Task<FFmpegInstallation> detect(std::stop_token stop = {}) const
    {
        return FFmpegInstallation::detect(ToolLocation(m_folder.path()), ProcessRunner(), stop);
    }

    FFmpegInstallation installation(std::optional<QString> versionSummary) const
    {
        return {QUrl::fromLocalFile(pathOf(u"ffmpeg"_s)), QUrl::fromLocalFile(pathOf(u"ffprobe"_s)),
                std::move(versionSummary)};
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(FFmpegInstallationTest, IsDetectedWithFFmpegsVersion)
{
    addTool(u"ffmpeg"_s, "echo 'ffmpeg version 7.1 built with clang'");
    addTool(u"ffprobe"_s, "echo 'ffprobe version 6.0'");
    EXPECT_EQ(await(detect()), installation(u"ffmpeg 7.1"_s));
}

TEST_F(FFmpegInstallationTest, AsksBothToolsTheSame)
{
    addTool(u"ffmpeg"_s, "");
    addTool(u"ffprobe"_s, "");
    await(detect());
    EXPECT_EQ(test::readFile(pathOf(u"ffmpeg.ran"_s)), "-hide_banner -version\n");
    EXPECT_EQ(test::readFile(pathOf(u"ffprobe.ran"_s)), "-hide_banner -version\n");
}

TEST_F(FFmpegInstallationTest, HasNoSummaryWhenFFmpegSaysNothing)
{
    addTool(u"ffmpeg"_s, "exit 0");
    addTool(u"ffprobe"_s, "echo 'ffprobe version 6.0'");
    const FFmpegInstallation found = await(detect());
    EXPECT_EQ(found, installation(std::nullopt));
    EXPECT_EQ(found.displayLine(), pathOf(u"."_s).chopped(2));
}

TEST_F(FFmpegInstallationTest, ReadsStderrAfterStdout)
{
    addTool(u"ffprobe"_s, "");
    addTool(u"ffmpeg"_s, "echo 'ffmpeg version 2' >&2; echo 'ffmpeg version 1'");
    EXPECT_EQ(await(detect()).versionSummary, u"ffmpeg 1"_s);
    addTool(u"ffmpeg"_s, "echo 'ffmpeg version 2' >&2");
    EXPECT_EQ(await(detect()).versionSummary, u"ffmpeg 2"_s);
    addTool(u"ffmpeg"_s, "printf 'ffmpeg ver'; printf 'sion 3' >&2");
    EXPECT_EQ(await(detect()).versionSummary, u"ffmpeg 3"_s);
}

TEST_F(FFmpegInstallationTest, HasNoSummaryWhenFFmpegsOutputIsNotUtf8)
{
    addTool(u"ffmpeg"_s, R"(echo 'ffmpeg version 7.1'; printf '\377' >&2)");
    addTool(u"ffprobe"_s, "");
    EXPECT_EQ(await(detect()), installation(std::nullopt));
}

TEST_F(FFmpegInstallationTest, MissesFFmpegFirst)
{
    EXPECT_EQ(awaitError<FFmpegNotFoundError>(detect()), FFmpegNotFoundError(u"ffmpeg"_s));
}

TEST_F(FFmpegInstallationTest, NamesFFprobeWhenOnlyThatIsMissingAndStartsNothing)
{
    addTool(u"ffmpeg"_s, "echo 'ffmpeg version 7.1'");
    EXPECT_EQ(awaitError<FFmpegNotFoundError>(detect()), FFmpegNotFoundError(u"ffprobe"_s));
    EXPECT_FALSE(hasRun(u"ffmpeg"_s));
}

TEST_F(FFmpegInstallationTest, TakesAFileThatIsNotExecutableForMissing)
{
    test::writeFile(pathOf(u"ffmpeg"_s), "#!/bin/sh\n");
    addTool(u"ffprobe"_s, "");
    EXPECT_EQ(awaitError<FFmpegNotFoundError>(detect()), FFmpegNotFoundError(u"ffmpeg"_s));
    EXPECT_FALSE(hasRun(u"ffprobe"_s));
}

TEST_F(FFmpegInstallationTest, MissesFFmpegWithoutAResourceFolder)
{
    EXPECT_EQ(awaitError<FFmpegNotFoundError>(
                  FFmpegInstallation::detect(ToolLocation(std::nullopt), ProcessRunner(), {})),
              FFmpegNotFoundError(u"ffmpeg"_s));
}

TEST_F(FFmpegInstallationTest, FailsWithTheReasonWhenFFmpegFails)
{
    addTool(u"ffmpeg"_s, "echo 'no library' >&2; exit 127");
    addTool(u"ffprobe"_s, "");
    EXPECT_EQ(awaitError<FFmpegNotRunnableError>(detect()),
              FFmpegNotRunnableError(u"ffmpeg"_s, u"ffmpeg exited with status 127.\n\nno library"_s));
    EXPECT_FALSE(hasRun(u"ffprobe"_s));
}

TEST_F(FFmpegInstallationTest, FailsWithTheReasonWhenFFprobeFails)
{
    addTool(u"ffmpeg"_s, "echo 'ffmpeg version 7.1'");
    addTool(u"ffprobe"_s, "exit 1");
    EXPECT_EQ(awaitError<FFmpegNotRunnableError>(detect()),
              FFmpegNotRunnableError(u"ffprobe"_s, u"ffprobe exited with status 1."_s));
}

TEST_F(FFmpegInstallationTest, FailsWithTheSystemsReasonWhenAToolCannotBeLaunched)
{
    addTool(u"ffmpeg"_s, "");
    test::writeFile(pathOf(u"ffprobe"_s), {});
    ASSERT_TRUE(QFile::setPermissions(pathOf(u"ffprobe"_s), QFile::ReadOwner | QFile::ExeOwner));
    EXPECT_EQ(awaitError<FFmpegNotRunnableError>(detect()),
              FFmpegNotRunnableError(u"ffprobe"_s, u"Exec format error."_s));
}

TEST_F(FFmpegInstallationTest, FailsLikeAnyOtherFailureWhenCancelled)
{
    addTool(u"ffmpeg"_s, "exec sleep 60");
    addTool(u"ffprobe"_s, "");
    std::stop_source stop;
    QCoro::Task<FFmpegInstallation> detection = detect(stop.get_token());
    EXPECT_TRUE(eventually([&] { return hasRun(u"ffmpeg"_s); }));
    stop.request_stop();
    EXPECT_EQ(awaitError<FFmpegNotRunnableError>(std::move(detection)),
              FFmpegNotRunnableError(u"ffmpeg"_s, u"The check was cancelled."_s));
    EXPECT_FALSE(hasRun(u"ffprobe"_s));
}

TEST_F(FFmpegInstallationTest, DetectsTheToolsThatShipWithTheApplication)
{
    const std::optional<QString> resources = resourceFolder();
    ASSERT_TRUE(resources.has_value());
    const FFmpegInstallation found =
        await(FFmpegInstallation::detect(ToolLocation(resources), ProcessRunner(), {}));
    ASSERT_TRUE(found.versionSummary.has_value());
    EXPECT_TRUE(found.versionSummary->startsWith(u"ffmpeg "_s)) << found.versionSummary->toStdString();
    EXPECT_EQ(found.displayLine(), *found.versionSummary + u" — "_s + *resources + u"/bin"_s);
}

TEST(FFmpegDisplayLine, TellsVersionAndFolder)
{
    const auto displayLine = [](const QString &ffmpeg, std::optional<QString> summary) {
        return FFmpegInstallation{QUrl::fromLocalFile(ffmpeg), QUrl(), std::move(summary)}.displayLine();
    };
    EXPECT_EQ(displayLine(u"/opt/tonearm/bin/ffmpeg"_s, u"ffmpeg 7.1"_s), u"ffmpeg 7.1 — /opt/tonearm/bin"_s);
    EXPECT_EQ(displayLine(u"/opt/tonearm/bin/ffmpeg"_s, std::nullopt), u"/opt/tonearm/bin"_s);
    EXPECT_EQ(displayLine(u"/ffmpeg"_s, u"ffmpeg 7.1"_s), u"ffmpeg 7.1 — /"_s);
    EXPECT_EQ(displayLine(u"/ffmpeg"_s, std::nullopt), u"/"_s);
    EXPECT_EQ(displayLine(u"/a folder/50% é/ffmpeg"_s, std::nullopt), u"/a folder/50% é"_s);
}

TEST(FFmpegInstallation, EqualsByAllThreeFields)
{
    const QUrl one(u"file:///one"_s);
    const QUrl two(u"file:///two"_s);
    const FFmpegInstallation installation{one, two, u"ffmpeg 7.1"_s};
    EXPECT_EQ(installation, (FFmpegInstallation{one, two, u"ffmpeg 7.1"_s}));
    EXPECT_NE(installation, (FFmpegInstallation{two, two, u"ffmpeg 7.1"_s}));
    EXPECT_NE(installation, (FFmpegInstallation{one, one, u"ffmpeg 7.1"_s}));
    EXPECT_NE(installation, (FFmpegInstallation{one, two, std::nullopt}));
}

TEST(FFmpegNotRunnableError, TellsToolAndReason)
{
    const FFmpegNotRunnableError error(u"ffprobe"_s, u"Exec format error."_s);
    EXPECT_EQ(error.description(), u"ffprobe could not be started."_s);
    EXPECT_EQ(error.recoverySuggestion(),
              u"Tonearm's copy of ffprobe failed to launch, which usually means the app bundle is damaged. "
              "Replacing it with a fresh download should restore it.\n\nExec format error."_s);
}

TEST(FFmpegNotRunnableError, EqualsByBothFields)
{
    const FFmpegNotRunnableError error(u"ffmpeg"_s, u"reason"_s);
    EXPECT_EQ(error, FFmpegNotRunnableError(u"ffmpeg"_s, u"reason"_s));
    EXPECT_NE(error, FFmpegNotRunnableError(u"ffprobe"_s, u"reason"_s));
    EXPECT_NE(error, FFmpegNotRunnableError(u"ffmpeg"_s, u"another"_s));
}

} // namespace tonearm
