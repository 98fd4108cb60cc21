// SPDX-License-Identifier: GPL-3.0-or-later
// The program as a process: how it begins, and that nothing is left behind however it ends.
#include "helpers/Await.h"
#include "helpers/CddafsProgram.h"
#include "helpers/Contents.h"
#include "helpers/DiscImage.h"
#include "helpers/Media.h"
#include "helpers/Mounting.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::CddafsProgram;

namespace {

// Its folders: the image's, and the one in which the mount points are made.
class ProgramTest : public testing::Test
{
protected:
    ProgramTest()
        : m_image(m_images.path(), {.tracks = {{}}, .title = "Album"})
    {
    }

    void SetUp() override { SKIP_WITHOUT_MOUNTS(); }

    QStringList inVolumes() const { return {u"--in"_s, m_volumes.path(), m_image.path()}; }

    QString volume() const { return m_volumes.filePath(u"Album"_s); }

    // Nothing is mounted and no mount point is left.
    bool isClean() const { return !test::mountedOn(volume()) && test::namesIn(m_volumes.path()).isEmpty(); }

    bool isCleanSoon() const
    {
        return test::eventually([this] { return isClean(); }, 20000);
    }

    QTemporaryDir m_images;
    QTemporaryDir m_volumes;
    test::DiscImage m_image;
};

} // namespace

TEST_F(ProgramTest, MountsOnAFolderThatIsThere)
{
    CddafsProgram program({m_image.path(), m_volumes.path()});
    EXPECT_EQ(program.waitForMount(), m_volumes.path());
    const auto entry = test::mountedOn(m_volumes.path());
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->type, u"fuse.cddafs"_s);
    EXPECT_EQ(entry->source, m_image.path());
    program.terminate();
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_FALSE(test::mountedOn(m_volumes.path()));
    EXPECT_TRUE(QDir(m_volumes.path()).exists());
}

TEST_F(ProgramTest, NamesTheMountPointLikeTheDisc)
{
    CddafsProgram program(inVolumes());
    EXPECT_EQ(program.waitForMount(), volume());
    CddafsProgram second(inVolumes());
    EXPECT_EQ(second.waitForMount(), m_volumes.filePath(u"Album 2"_s));
}

TEST_F(ProgramTest, ResolvesALinkToTheDisc)
{
    const QString link = m_images.filePath(u"link.cue"_s);
    ASSERT_TRUE(QFile::link(m_image.path(), link));
    CddafsProgram program({u"--in"_s, m_volumes.path(), link});
    EXPECT_EQ(program.waitForMount(), volume());
    EXPECT_EQ(test::mountedOn(volume())->source, m_image.path());
}

TEST_F(ProgramTest, LeavesNothingBehindWhenItIsTerminated)
{
    CddafsProgram program(inVolumes());
    ASSERT_EQ(program.waitForMount(), volume());
    program.terminate();
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_TRUE(isClean());
}

TEST_F(ProgramTest, LeavesNothingBehindWhenItIsKilled)
{
    CddafsProgram program(inVolumes());
    ASSERT_EQ(program.waitForMount(), volume());
    program.kill();
    EXPECT_EQ(program.waitForEnd(), -1);
    EXPECT_TRUE(isCleanSoon());
}

TEST_F(ProgramTest, LeavesNoMountBehindOnAFolderThatWasThereWhenItIsKilled)
{
    CddafsProgram program({m_image.path(), m_volumes.path()});
    ASSERT_EQ(program.waitForMount(), m_volumes.path());
    program.kill();
    EXPECT_TRUE(test::eventually([this] { return !test::mountedOn(m_volumes.path()); }));
    EXPECT_TRUE(QDir(m_volumes.path()).exists());
}

TEST_F(ProgramTest, LeavesNothingBehindWhenItIsKilledWhileAFileIsOpen)
{
    CddafsProgram program(inVolumes());
    ASSERT_EQ(program.waitForMount(), volume());
    QFile track(volume() + u"/1 Audio Track.aiff");
    ASSERT_TRUE(track.open(QIODevice::ReadOnly));
    program.kill();
    EXPECT_TRUE(isCleanSoon());
}

TEST_F(ProgramTest, LeavesNothingBehindWhenAFileIsStillOpen)
{
    CddafsProgram program(inVolumes());
    ASSERT_EQ(program.waitForMount(), volume());
    QFile track(volume() + u"/1 Audio Track.aiff");
    ASSERT_TRUE(track.open(QIODevice::ReadOnly));
    program.terminate();
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_TRUE(isClean());
}

TEST_F(ProgramTest, EndsWhenItIsUnmounted)
{
    CddafsProgram program(inVolumes());
    ASSERT_EQ(program.waitForMount(), volume());
    test::unmount(volume());
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_TRUE(isClean());
}

TEST_F(ProgramTest, EndsWhenTheDiscIsGone)
{
    CddafsProgram program(inVolumes());
    ASSERT_EQ(program.waitForMount(), volume());
    ASSERT_EQ(test::namesIn(volume()).size(), 2);
    ASSERT_TRUE(QFile::remove(m_image.path()));
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_TRUE(isClean());
}

TEST_F(ProgramTest, EndsWhenItsParentIsKilled)
{
    QProcess shell;
    shell.start(u"/bin/sh"_s,
                QStringList{u"-c"_s, u"\"$0\" \"$@\" & wait"_s, test::cddafsPath()} + inVolumes());
    ASSERT_TRUE(shell.waitForReadyRead(20000));
    ASSERT_TRUE(test::mountedOn(volume()));
    shell.kill();
    shell.waitForFinished();
    EXPECT_TRUE(isCleanSoon());
}

TEST_F(ProgramTest, EndsAtOnceIfItsParentHasEndedBefore)
{
    CddafsProgram program(QStringList{u"--parent"_s, QString::number(::getpid() + 1)} + inVolumes());
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_TRUE(isClean());
}

TEST_F(ProgramTest, GoesOnInTheBackgroundUntilItIsUnmounted)
{
    const QByteArray printed =
        test::outputOf(test::cddafsPath(), QStringList{u"--background"_s} + inVolumes());
    EXPECT_EQ(printed, volume().toUtf8() + '\n');
    EXPECT_EQ(test::namesIn(volume()).size(), 2);
    EXPECT_EQ(test::readFile(volume() + u"/1 Audio Track.aiff").size(), 21 * 2352);
    test::unmount(volume());
    EXPECT_TRUE(isCleanSoon());
}

TEST_F(ProgramTest, FindsPathsThatAreGivenRelative)
{
    QProcess shell;
    shell.setWorkingDirectory(m_images.path());
    shell.start(test::cddafsPath(), {u"--background"_s, u"--in"_s, u"."_s, u"image.cue"_s});
    ASSERT_TRUE(shell.waitForFinished(20000));
    const QString mounted = QString::fromUtf8(shell.readAllStandardOutput()).chopped(1);
    EXPECT_TRUE(QDir(mounted).exists(u".TOC.plist"_s)) << mounted.toStdString();
    EXPECT_EQ(test::namesIn(m_images.filePath(u"Album"_s)).size(), 2);
    test::unmount(m_images.filePath(u"Album"_s));
    EXPECT_TRUE(test::eventually([&] { return !QDir(m_images.filePath(u"Album"_s)).exists(); }));
}

TEST_F(ProgramTest, HandlesPathsWithCommasBlanksAndBackslashes)
{
    ASSERT_TRUE(QDir(m_images.path()).mkdir(u"a, b\\c"_s));
    const test::DiscImage image(m_images.filePath(u"a, b\\c"_s), {.tracks = {{}}}, u"im,age \\1"_s);
    CddafsProgram program({u"--in"_s, m_volumes.path(), image.path()});
    const QString mounted = program.waitForMount();
    EXPECT_EQ(mounted, m_volumes.filePath(u"Audio CD"_s));
    const auto entry = test::mountedOn(mounted);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->source, image.path());
}

namespace {

struct Refusal
{
    int exitCode;
    QByteArray words;
};

Refusal refusalOf(const QStringList &arguments)
{
    CddafsProgram program(arguments);
    const int code = program.waitForEnd();
    return {code, program.errors()};
}

} // namespace

TEST_F(ProgramTest, RefusesADiscWithoutAudio)
{
    const test::DiscImage image(m_images.path(), {.tracks = {{.isAudio = false}}}, u"data"_s);
    const Refusal refusal = refusalOf({u"--in"_s, m_volumes.path(), image.path()});
    EXPECT_EQ(refusal.exitCode, 1);
    EXPECT_EQ(refusal.words, "tonearm-cddafs: This disc has no audio tracks.\n");
    EXPECT_TRUE(isClean());
}

TEST_F(ProgramTest, RefusesWhatIsNoDisc)
{
    const QString text = m_images.filePath(u"text.txt"_s);
    test::writeFile(text, "no disc");
    EXPECT_EQ(refusalOf({u"--in"_s, m_volumes.path(), text}).words,
              "tonearm-cddafs: " + text.toUtf8() + " is neither a drive nor a .cue file.\n");
    const QString missing = m_images.filePath(u"missing.cue"_s);
    EXPECT_EQ(refusalOf({u"--in"_s, m_volumes.path(), missing}).words,
              "tonearm-cddafs: " + missing.toUtf8() + ": No such file or directory\n");
    EXPECT_EQ(refusalOf({u"--in"_s, m_volumes.path(), u"/dev/null"_s}).exitCode, 1);
    ASSERT_TRUE(QFile::remove(m_image.binPath()));
    EXPECT_EQ(refusalOf(inVolumes()).words,
              "tonearm-cddafs: There is no disc in " + m_image.path().toUtf8() + ".\n");
    EXPECT_TRUE(isClean());
}

TEST_F(ProgramTest, RefusesAMountPointThatIsNotThere)
{
    EXPECT_EQ(refusalOf({m_image.path(), m_volumes.filePath(u"none"_s)}).exitCode, 1);
}

TEST_F(ProgramTest, TellsHowItIsUsed)
{
    const Refusal refusal = refusalOf({});
    EXPECT_EQ(refusal.exitCode, 2);
    EXPECT_TRUE(refusal.words.startsWith("tonearm-cddafs: A disc and a place for it are needed.\n"));
    EXPECT_TRUE(refusal.words.contains("usage: tonearm-cddafs"));
}

} // namespace tonearm
