// SPDX-License-Identifier: GPL-3.0-or-later
#include "audiotools/AudioTools.h"
#include "audiotools/PackageSources.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

constexpr auto oneLineEntry = "deb [trusted=yes] FFMPEG ./\n";

class BuildAudioTools : public testing::Test
{
protected:
    ProgramRun build(const QProcessEnvironment &environment, const QString &output = u"first"_s)
    {
        return runProgram(QStringLiteral(TONEARM_SCRIPTS "/build-audio-tools"),
                          {folder(output), m_folder.filePath(u"cache"_s)}, environment);
    }

    ProgramRun build(const QString &output = u"first"_s) { return build(sources.environment(), output); }

    /// Offers the stand-in source, told of by a one-line entry.
    void offerFFmpeg(const StandInSource &standIn = {})
    {
        sources.offerFFmpeg(standIn);
        sources.addEntries(u"here.list"_s, QString::fromLatin1(oneLineEntry));
        sources.updateLists();
    }

    QString folder(const QString &output) const { return m_folder.filePath(output + u"/bin"_s); }

    QString tool(const QString &name, const QString &output = u"first"_s) const
    {
        return folder(output) + u'/' + name;
    }

    QString notice(const QString &output = u"first"_s) const
    {
        return QString::fromUtf8(readFile(m_folder.filePath(output + u"/audio-tools.txt"_s)));
    }

    QString log() const { return QString::fromUtf8(readFile(m_folder.filePath(u"cache/build.log"_s))); }

    void expectBuilt(const ProgramRun &run)
    {
        EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
        EXPECT_EQ(noticeField(notice(), u"Origin"_s), u"built"_s)
            << run.output.toStdString() << log().toStdString();
        EXPECT_EQ(noticeField(notice(), u"Version"_s), PackageSources::version());
        EXPECT_EQ(noticeField(notice(), u"License"_s), u"made up"_s);
        EXPECT_FALSE(QFileInfo(tool(u"ffmpeg"_s)).isSymLink());
        EXPECT_FALSE(QFileInfo(tool(u"ffprobe"_s)).isSymLink());
        expectComplete();
    }

    void expectLinked(const ProgramRun &run, const QString &reason)
    {
        EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
        EXPECT_EQ(noticeField(notice(), u"Origin"_s), u"linked"_s);
        EXPECT_EQ(noticeField(notice(), u"Reason"_s), reason) << log().toStdString();
        const QString sentence =
            u"audio-tools: ffmpeg and ffprobe are links to the system's, which start slowly, because "_s +
            reason + u"; log: "_s + m_folder.filePath(u"cache/build.log"_s) + u'\n';
        EXPECT_EQ(QString::fromUtf8(run.output).section(u'\n', -2), sentence);
        EXPECT_EQ(QFileInfo(tool(u"ffmpeg"_s)).canonicalFilePath(),
                  QFileInfo(systemTool(u"ffmpeg"_s)).canonicalFilePath());
        EXPECT_EQ(QFileInfo(tool(u"ffprobe"_s)).canonicalFilePath(),
                  QFileInfo(systemTool(u"ffprobe"_s)).canonicalFilePath());
        expectComplete();
    }

    /// The three tools and nothing else, each able to start, and no work left in the cache.
    void expectComplete(const QString &output = u"first"_s)
    {
        EXPECT_EQ(namesIn(folder(output)), (QStringList{u"cd-paranoia"_s, u"ffmpeg"_s, u"ffprobe"_s}));
        EXPECT_EQ(runProgram(tool(u"ffmpeg"_s, output), {u"-version"_s}).exitCode, 0);
        EXPECT_EQ(runProgram(tool(u"ffprobe"_s, output), {u"-version"_s}).exitCode, 0);
        EXPECT_EQ(runProgram(tool(u"cd-paranoia"_s, output), {u"--version"_s}).exitCode, 0);
        EXPECT_EQ(namesIn(m_folder.filePath(u"cache"_s)).filter(u"tonearm-audio-tools"_s), QStringList());
    }

    /// A search path with all programs but some.
    QProcessEnvironment environmentWithout(const QStringList &programs)
    {
        const QString here = m_folder.filePath(u"programs"_s);
        QDir().mkpath(here);
        const QDir usual(u"/usr/bin"_s);
        for (const QString &name : usual.entryList(QDir::Files)) {
            if (!programs.contains(name))
                QFile::link(usual.filePath(name), here + u'/' + name);
        }
        QProcessEnvironment environment = sources.environment();
        environment.insert(u"PATH"_s, here);
        return environment;
    }

    PackageSources sources;

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(BuildAudioTools, BuildsFromASourceToldOfInOneLine)
{
    sources.offerFFmpeg();
    sources.addEntries(u"here.list"_s, u"# local\n\ndeb [trusted=yes] FFMPEG ./\n"_s);
    sources.updateLists();
    expectBuilt(build());
}

TEST_F(BuildAudioTools, BuildsFromASourceToldOfInAParagraph)
{
    sources.offerFFmpeg();
    sources.addEntries(u"here.sources"_s,
                       u"# local\n\nTypes: deb\nURIs: OTHER\nSuites: ./\nTrusted: yes\n\n"
                       "Types: deb\n# the address\nURIs: FFMPEG\nSuites: ./\nTrusted: yes\n"_s);
    sources.updateLists();
    expectBuilt(build());
    EXPECT_FALSE(log().contains(sources.folder() + u"/other"_s)) << log().toStdString();
}

TEST_F(BuildAudioTools, AsksOnlyTheSourcesThatCarryFFmpeg)
{
    sources.offerFFmpeg();
    sources.addEntries(u"here.list"_s, u"deb [trusted=yes] OTHER ./\ndeb [trusted=yes] FFMPEG ./\n"_s);
    sources.updateLists();
    expectBuilt(build());
    EXPECT_TRUE(log().contains(sources.folder() + u"/ffmpeg"_s)) << log().toStdString();
    EXPECT_FALSE(log().contains(sources.folder() + u"/other"_s)) << log().toStdString();
}

TEST_F(BuildAudioTools, AsksAllSourcesOfAMachineWithoutPackageLists)
{
    sources.offerFFmpeg();
    sources.addEntries(u"here.list"_s, u"deb [trusted=yes] FFMPEG ./\n"_s);
    expectBuilt(build());
}

// A source that apt doesn't trust stays untrusted: the entry's options are kept and none is added.
TEST_F(BuildAudioTools, TakesNoSourceThatAptDoesNotTrust)
{
    sources.offerFFmpeg();
    sources.addEntries(u"here.list"_s, u"deb FFMPEG ./\n"_s);
    expectLinked(build(), u"its source package couldn't be fetched"_s);
}

TEST_F(BuildAudioTools, ChangesNothingOnASecondCall)
{
    offerFFmpeg();
    expectBuilt(build());
    const QDateTime noticed = QFileInfo(tool(u"../audio-tools.txt"_s)).lastModified();
    const QDateTime made = QFileInfo(tool(u"ffmpeg"_s)).metadataChangeTime();

    const ProgramRun second = build();
    EXPECT_EQ(second.exitCode, 0);
    EXPECT_EQ(second.output, QByteArray());
    EXPECT_EQ(QFileInfo(tool(u"../audio-tools.txt"_s)).lastModified(), noticed);
    EXPECT_EQ(QFileInfo(tool(u"ffmpeg"_s)).metadataChangeTime(), made);
}

TEST_F(BuildAudioTools, BuildsOnceForSeveralFolders)
{
    offerFFmpeg();
    expectBuilt(build());
    const ProgramRun second = build(u"second"_s);
    EXPECT_EQ(second.output, QByteArray());
    expectComplete(u"second"_s);
    EXPECT_EQ(notice(u"second"_s), notice());
}

TEST_F(BuildAudioTools, MendsADamagedFolder)
{
    offerFFmpeg();
    expectBuilt(build());
    writeFile(tool(u"ffprobe"_s), "#!/bin/sh\nexit 1\n");
    ASSERT_TRUE(QFile::remove(tool(u"cd-paranoia"_s)));

    expectBuilt(build());
}

TEST_F(BuildAudioTools, TellsOfCDParanoiaToo)
{
    offerFFmpeg();
    expectBuilt(build());
    const QByteArray version =
        runProgram(u"dpkg-query"_s, {u"--show"_s, u"--showformat=${Version}"_s, u"cd-paranoia"_s}).output;
    const QString expected = u"Tools: cd-paranoia\nOrigin: linked\nPackage: cd-paranoia\nVersion: "_s +
                             QString::fromUtf8(version) +
                             u"\nCopyright: /usr/share/doc/cd-paranoia/copyright\n"_s;
    EXPECT_EQ(notice().section(u"\n\n"_s, 1), expected);
}

TEST_F(BuildAudioTools, LinksToTheSystemWhereNoSourceCarriesFFmpeg)
{
    expectLinked(build(), u"none of this machine's package sources carries ffmpeg"_s);
}

TEST_F(BuildAudioTools, LinksToTheSystemWhereTheSourceIsGone)
{
    offerFFmpeg();
    ASSERT_TRUE(QFile::remove(sources.folder() + u"/ffmpeg/Sources"_s));
    expectLinked(build(), u"its source package couldn't be fetched"_s);
}

TEST_F(BuildAudioTools, LinksToTheSystemWhereTheSourceCannotBeConfigured)
{
    offerFFmpeg({.configure = "exit 1"});
    expectLinked(build(), u"its source couldn't be configured"_s);
}

TEST_F(BuildAudioTools, LinksToTheSystemWhereTheSourceLacksAComponent)
{
    offerFFmpeg({.configure = "echo 'WARNING: Option --enable-decoder=flac did not match anything'"});
    expectLinked(build(), u"its source couldn't be configured"_s);
}

TEST_F(BuildAudioTools, LinksToTheSystemWhereAComponentCannotBeBuilt)
{
    offerFFmpeg(
        {.configure = "echo 'WARNING: Disabled png_decoder because not all dependencies are satisfied'"});
    expectLinked(build(), u"its source couldn't be configured"_s);
}

TEST_F(BuildAudioTools, LinksToTheSystemWhereTheBuildFails)
{
    offerFFmpeg({.makefile = "ffmpeg ffprobe:\n\tfalse\n"});
    expectLinked(build(), u"its source didn't build"_s);
}

TEST_F(BuildAudioTools, LinksToTheSystemWhereTheBuiltToolsDoNotWork)
{
    offerFFmpeg({.makefile = "ffmpeg ffprobe:\n\tprintf '#!/bin/sh\\n' >$@\n\tchmod +x $@\n"});
    expectLinked(build(), u"the built tools failed their trial"_s);
}

TEST_F(BuildAudioTools, LinksToTheSystemWhereThereIsNoApt)
{
    expectLinked(build(environmentWithout({u"apt-get"_s})),
                 u"fetching its source needs apt-get and dpkg-source"_s);
}

TEST_F(BuildAudioTools, LeavesLinksAsTheyAreForADay)
{
    build();
    EXPECT_EQ(build().output, QByteArray());

    const QString yesterday = QDateTime::currentDateTime().addDays(-1).addSecs(-60).toString(Qt::ISODate);
    EXPECT_EQ(runProgram(u"touch"_s, {u"--date="_s + yesterday, tool(u"../audio-tools.txt"_s)}).exitCode, 0);
    expectLinked(build(), u"none of this machine's package sources carries ffmpeg"_s);
}

TEST_F(BuildAudioTools, ReplacesLinksOnceThereIsABuild)
{
    build();
    offerFFmpeg();
    build(u"second"_s);
    expectBuilt(build());
}

TEST_F(BuildAudioTools, FailsWithASentenceWithoutAnyFFmpeg)
{
    const ProgramRun run = build(environmentWithout({u"ffmpeg"_s, u"ffprobe"_s}));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.errors.startsWith(
        "audio-tools: no ffmpeg: it isn't built, because none of this machine's package "
        "sources carries ffmpeg, and the system has none: install the package ffmpeg"))
        << run.errors.toStdString();
}

TEST_F(BuildAudioTools, FailsWithASentenceWithoutCDParanoia)
{
    const ProgramRun run = build(environmentWithout({u"cd-paranoia"_s}));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "audio-tools: no cd-paranoia on this system: install the package cd-paranoia\n");
}

TEST_F(BuildAudioTools, FailsWithItsUsageWithoutAFolder)
{
    const ProgramRun run = runProgram(QStringLiteral(TONEARM_SCRIPTS "/build-audio-tools"), {});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "audio-tools: usage: build-audio-tools <output folder> [<cache folder>]\n");
}

} // namespace tonearm::test
