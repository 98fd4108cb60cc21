// SPDX-License-Identifier: GPL-3.0-or-later
// The notices about what comes with the application: they tell what really does.
#include "audiotools/AudioTools.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "support/ResourceFolder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

constexpr auto builtTools = "Tools: ffmpeg, ffprobe\nOrigin: built\nVersion: 7:3.2-1\nLicense: made up\n"
                            "Contains: glibc 9\n\nTools: cd-paranoia\nOrigin: linked\nVersion: 0.1-2\n";
constexpr auto linkedTools =
    "Tools: ffmpeg, ffprobe\nOrigin: linked\nVersion: 7:4.0-2\n"
    "Copyright: /a/copyright\nReason: none\n\nTools: cd-paranoia\nOrigin: linked\nVersion: 0.1-2\n";

// Notices about stand-ins for the tools.
class WrittenNotices : public testing::Test
{
protected:
    WrittenNotices()
    {
        QDir().mkpath(m_folder.filePath(u"bin"_s));
        addFFmpeg("ffmpeg version 3.2-1 Copyright");
        writeScript(m_folder.filePath(u"bin/cd-paranoia"_s), "echo; echo paranoia 0.1 >&2\n");
    }

    void addFFmpeg(const QByteArray &version)
    {
        writeScript(m_folder.filePath(u"bin/ffmpeg"_s),
                    "case \"$*\" in *-buildconf*) echo '  configuration:'; echo '    --enable-this';; "
                    "*) echo '" +
                        version + "';; esac\n");
    }

    void tell(const char *tools) { writeFile(m_folder.filePath(u"audio-tools.txt"_s), tools); }

    ProgramRun write()
    {
        return runProgram(QStringLiteral(TONEARM_SCRIPTS "/write-notices"), {m_folder.path()});
    }

    QString readme() const { return m_folder.filePath(u"Licenses/README.txt"_s); }

    QString text() const { return QString::fromUtf8(readFile(readme())); }

    QString path(const QString &name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
};

QString shippedNotices()
{
    return QString::fromUtf8(readFile(resourceFolder().value() + u"/Licenses/README.txt"_s));
}

QString firstLineOf(const ProgramRun &run)
{
    return QString::fromUtf8(run.output + run.errors).trimmed().section(u'\n', 0, 0);
}

// What the programs of a floor ask the loader for.
QStringList neededBy(const QString &program)
{
    const ProgramRun run = runProgram(u"readelf"_s, {u"--wide"_s, u"--dynamic"_s, program});
    QStringList needed;
    const QRegularExpression line(u"\\(NEEDED\\).*\\[(.+)\\]"_s);
    for (auto matches = line.globalMatch(QString::fromUtf8(run.output)); matches.hasNext();)
        needed.append(matches.next().captured(1));
    return needed;
}

// The starts of file names in the list of libraries.
QStringList listedLibraries()
{
    QStringList starts;
    const QString list = QString::fromUtf8(readFile(QStringLiteral(TONEARM_NOTICES "/libraries")));
    for (const QString &line : list.split(u'\n', Qt::SkipEmptyParts))
        if (!line.startsWith(u'#'))
            starts += line.section(u'|', 0, 0).split(u' ', Qt::SkipEmptyParts);
    return starts;
}

} // namespace

TEST_F(WrittenNotices, TellOfABuiltFFmpeg)
{
    tell(builtTools);
    const ProgramRun run = write();
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
    for (const QString &line :
         {u"Version: ffmpeg version 3.2-1 Copyright"_s, u"Licence: made up"_s, u"Holds:   glibc 9"_s,
          u"    apt-get source ffmpeg=7:3.2-1"_s, u"    --enable-this"_s, u"Version: paranoia 0.1"_s,
          u"    apt-get source cd-paranoia=0.1-2"_s})
        EXPECT_TRUE(text().contains(u'\n' + line + u'\n')) << line.toStdString() << text().toStdString();
}

TEST_F(WrittenNotices, TellOfALinkedFFmpeg)
{
    tell(linkedTools);
    ASSERT_EQ(write().exitCode, 0);
    EXPECT_TRUE(text().contains(u"This copy of Tonearm holds no ffmpeg of its own"_s));
    EXPECT_TRUE(text().contains(u"\nfrom its package ffmpeg 7:4.0-2.\n"_s));
    EXPECT_TRUE(text().contains(u"/a/copyright"_s));
    EXPECT_FALSE(text().contains(u"were built for Tonearm"_s));
}

TEST_F(WrittenNotices, TellWhetherCDParanoiaIsALink)
{
    tell(builtTools);
    ASSERT_EQ(write().exitCode, 0);
    EXPECT_TRUE(text().contains(u"The program is the one of that package, unchanged."_s));
    ASSERT_TRUE(QFile::rename(path(u"bin/cd-paranoia"_s), path(u"elsewhere"_s)));
    ASSERT_TRUE(QFile::link(path(u"elsewhere"_s), path(u"bin/cd-paranoia"_s)));
    ASSERT_EQ(write().exitCode, 0);
    EXPECT_TRUE(text().contains(u"This copy of Tonearm holds no cd-paranoia of its own"_s));
}

TEST_F(WrittenNotices, StayAsTheyAreWhereNothingHasChanged)
{
    tell(builtTools);
    ASSERT_EQ(write().exitCode, 0);
    const QDateTime before = QFileInfo(readme()).metadataChangeTime();
    ASSERT_EQ(write().exitCode, 0);
    EXPECT_EQ(QFileInfo(readme()).metadataChangeTime(), before);
    addFFmpeg("ffmpeg version 4 Copyright");
    ASSERT_EQ(write().exitCode, 0);
    EXPECT_TRUE(text().contains(u"Version: ffmpeg version 4 Copyright"_s));
    EXPECT_EQ(namesIn(path(u"Licenses"_s)), QStringList{u"README.txt"_s}) << "nothing else is left";
}

TEST_F(WrittenNotices, AreNotWrittenAboutAToolThatDoesNotStart)
{
    tell(builtTools);
    writeScript(path(u"bin/ffmpeg"_s), "exit 1\n");
    const ProgramRun run = write();
    EXPECT_NE(run.exitCode, 0);
    EXPECT_TRUE(run.errors.contains("notices: ffmpeg doesn't start")) << run.errors.toStdString();
    EXPECT_FALSE(QFileInfo::exists(readme()));
}

TEST_F(WrittenNotices, AreNotWrittenWhereNobodyToldOfTheTools)
{
    EXPECT_NE(write().exitCode, 0);
    EXPECT_FALSE(QFileInfo::exists(readme()));
}

TEST(ShippedNotices, NameTheVersionOfTheShippedFFmpeg)
{
    const QString version = firstLineOf(runProgram(shippedTool(u"ffmpeg"_s), {u"-version"_s}));
    ASSERT_TRUE(version.startsWith(u"ffmpeg version "_s));
    EXPECT_TRUE(shippedNotices().contains(u"\nVersion: "_s + version + u'\n'));
    EXPECT_TRUE(shippedNotices().contains(noticeField(shippedNotice(), u"Version"_s)));
}

TEST(ShippedNotices, TellHowTheShippedFFmpegWasConfigured)
{
    const ProgramRun run = runProgram(shippedTool(u"ffmpeg"_s), {u"-hide_banner"_s, u"-buildconf"_s});
    const QStringList options =
        QString::fromUtf8(run.output).split(u'\n').filter(QRegularExpression(u"^ *--"_s));
    ASSERT_GT(options.size(), 10);
    for (const QString &option : options)
        EXPECT_TRUE(shippedNotices().contains(u"\n    "_s + option.trimmed() + u'\n'))
            << option.toStdString();
}

TEST(ShippedNotices, NameTheVersionOfTheShippedCDParanoia)
{
    const QString version = firstLineOf(runProgram(shippedTool(u"cd-paranoia"_s), {u"--version"_s}));
    ASSERT_FALSE(version.isEmpty());
    EXPECT_TRUE(shippedNotices().contains(u"\nVersion: "_s + version + u'\n'));
}

TEST(ShippedNotices, HaveNoGaps)
{
    EXPECT_FALSE(shippedNotices().contains(u'@')) << "a part that nobody filled in";
    EXPECT_FALSE(
        shippedNotices().contains(QRegularExpression(u"\n(Version|Source|Licence|Holds|Package): *\n"_s)));
    EXPECT_FALSE(shippedNotices().contains(u"version unknown"_s));
}

TEST(ShippedNotices, TellOfEveryLibraryThatTheProgramsNeed)
{
    const QStringList listed = listedLibraries();
    // The loader itself, and what a build under a sanitizer needs beside.
    const QStringList passedOver = {u"ld-linux"_s, u"libasan"_s, u"libubsan"_s, u"libtsan"_s};
    for (const QString &room :
         {u"support"_s, u"artwork"_s, u"web"_s, u"disc"_s, u"cddafs"_s, u"platform"_s, u"elements"_s}) {
        const QStringList needed =
            neededBy(QCoreApplication::applicationDirPath() + u"/../floors/floor_"_s + room);
        EXPECT_FALSE(needed.isEmpty()) << room.toStdString();
        for (const QString &library : needed) {
            const auto begins = [&](const QString &start) { return library.startsWith(start); };
            EXPECT_TRUE(std::any_of(listed.begin(), listed.end(), begins) ||
                        std::any_of(passedOver.begin(), passedOver.end(), begins))
                << library.toStdString();
        }
    }
}

} // namespace tonearm::test
