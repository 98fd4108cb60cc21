// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/ToolLocation.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "tools/StartedRun.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::errorOf;

namespace {

// A resource folder whose "bin" is empty at first.
class ToolLocationTest : public testing::Test
{
protected:
    ToolLocationTest() { EXPECT_TRUE(QDir(m_folder.path()).mkdir(u"bin"_s)); }

    ToolLocation tools() const { return ToolLocation(m_folder.path()); }

    QString pathOf(const QString &tool) const { return m_folder.path() + u"/bin/"_s + tool; }

    std::optional<FFmpegNotFoundError> errorFor(const QString &tool) const
    {
        return errorOf<FFmpegNotFoundError>([&] { return tools().toolURL(tool); });
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(ToolLocationTest, LiesInBinBelowTheResourceFolder)
{
    EXPECT_EQ(ToolLocation(u"/opt/tonearm/share"_s).toolDirectory(), u"/opt/tonearm/share/bin"_s);
}

TEST_F(ToolLocationTest, MissesFFmpegWithoutAResourceFolder)
{
    const ToolLocation lost(std::nullopt);
    EXPECT_EQ(errorOf<FFmpegNotFoundError>([&] { return lost.toolDirectory(); }),
              FFmpegNotFoundError(u"ffmpeg"_s));
    EXPECT_EQ(errorOf<FFmpegNotFoundError>([&] { return lost.toolURL(u"ffprobe"_s); }),
              FFmpegNotFoundError(u"ffmpeg"_s));
}

TEST_F(ToolLocationTest, FindsAnExecutableFile)
{
    test::writeScript(pathOf(u"ffprobe"_s), "exit 0");
    EXPECT_EQ(tools().toolURL(u"ffprobe"_s), QUrl::fromLocalFile(pathOf(u"ffprobe"_s)));
}

TEST_F(ToolLocationTest, FindsALinkToAnExecutableFile)
{
    ASSERT_TRUE(QFile::link(u"/bin/true"_s, pathOf(u"ffmpeg"_s)));
    EXPECT_EQ(tools().toolURL(u"ffmpeg"_s), QUrl::fromLocalFile(pathOf(u"ffmpeg"_s)));
}

TEST_F(ToolLocationTest, MissesWhatIsNotThere)
{
    EXPECT_EQ(errorFor(u"ffmpeg"_s), FFmpegNotFoundError(u"ffmpeg"_s));
    EXPECT_EQ(errorFor(u"ffprobe"_s), FFmpegNotFoundError(u"ffprobe"_s));
}

TEST_F(ToolLocationTest, MissesAFileThatIsNotExecutable)
{
    test::writeFile(pathOf(u"ffmpeg"_s), "#!/bin/sh\n");
    EXPECT_EQ(errorFor(u"ffmpeg"_s), FFmpegNotFoundError(u"ffmpeg"_s));
}

TEST_F(ToolLocationTest, MissesAFolderAndALinkToNothing)
{
    ASSERT_TRUE(QDir().mkdir(pathOf(u"ffmpeg"_s)));
    EXPECT_EQ(errorFor(u"ffmpeg"_s), FFmpegNotFoundError(u"ffmpeg"_s));
    ASSERT_TRUE(QFile::link(pathOf(u"nothing"_s), pathOf(u"ffprobe"_s)));
    EXPECT_EQ(errorFor(u"ffprobe"_s), FFmpegNotFoundError(u"ffprobe"_s));
}

TEST_F(ToolLocationTest, LooksAfreshAtEachCall)
{
    const ToolLocation same = tools();
    EXPECT_TRUE(errorOf<FFmpegNotFoundError>([&] { return same.toolURL(u"ffmpeg"_s); }));
    test::writeScript(pathOf(u"ffmpeg"_s), "exit 0");
    EXPECT_EQ(same.toolURL(u"ffmpeg"_s), QUrl::fromLocalFile(pathOf(u"ffmpeg"_s)));
    ASSERT_TRUE(QFile::remove(pathOf(u"ffmpeg"_s)));
    EXPECT_TRUE(errorOf<FFmpegNotFoundError>([&] { return same.toolURL(u"ffmpeg"_s); }));
}

TEST_F(ToolLocationTest, GivesALocationThatRunsWhateverTheFolderIsCalled)
{
    const QTemporaryDir folder;
    const QString odd = folder.filePath(u"50% #1? é"_s);
    ASSERT_TRUE(QDir().mkpath(odd + u"/bin"_s));
    test::writeScript(odd + u"/bin/ffmpeg"_s, "printf found");
    EXPECT_EQ(test::run(ToolLocation(odd).toolURL(u"ffmpeg"_s)).stdoutBytes, "found");
}

TEST(FFmpegNotFoundError, TellsTheToolAndWhatToDo)
{
    const FFmpegNotFoundError error(u"ffprobe"_s);
    EXPECT_EQ(error.description(), u"ffprobe could not be found."_s);
    EXPECT_EQ(error.recoverySuggestion(),
              u"ffprobe ships inside Tonearm, so this copy of the app looks damaged. "
              "Replacing it with a fresh download should restore it."_s);
}

TEST(FFmpegNotFoundError, EqualsByTheMissingTool)
{
    EXPECT_EQ(FFmpegNotFoundError(u"ffmpeg"_s), FFmpegNotFoundError(u"ffmpeg"_s));
    EXPECT_NE(FFmpegNotFoundError(u"ffmpeg"_s), FFmpegNotFoundError(u"ffprobe"_s));
}

} // namespace tonearm
