// SPDX-License-Identifier: GPL-3.0-or-later
// What the user can do with a job's results.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ScriptedTools;

namespace {

class Output : public testing::Test
{
protected:
    // A place in the temporary folder that is really there.
    QUrl folder(const QString &name)
    {
        EXPECT_TRUE(QDir().mkpath(m_fixture.path(name)));
        return m_fixture.url(name);
    }

    void haveLog()
    {
        test::writeFile(m_fixture.path(u"job.log"_s), "log");
        m_model.lastLogURL = m_fixture.url(u"job.log"_s);
    }

    void expectShown(const QList<QUrl> &locations)
    {
        m_fixture.settle();
        EXPECT_EQ(m_fixture.fileViewer().selections(), (QList<QList<QUrl>>{locations}));
    }

    ModelFixture m_fixture;
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(Output, CanBeShownOnceThereIsSome)
{
    EXPECT_FALSE(m_model.canRevealOutput());
    m_model.completion = EncodingCompletion();
    EXPECT_TRUE(m_model.canRevealOutput());
    m_model.completion = std::nullopt;
    m_model.encodedFiles = QList{m_fixture.url(u"a.flac"_s)};
    EXPECT_TRUE(m_model.canRevealOutput());
}

TEST_F(Output, IsShownAsAllItsFiles)
{
    m_model.encodedFiles = QList{m_fixture.url(u"a.flac"_s), m_fixture.url(u"b.flac"_s)};
    m_model.lastOutputFolder = folder(u"last"_s);
    m_model.revealOutput();
    expectShown(m_model.encodedFiles.value());
}

TEST_F(Output, IsShownAsTheFolderOfTheLastJob)
{
    m_model.lastOutputFolder = folder(u"last"_s);
    m_model.outputFolderURL = folder(u"out"_s);
    m_model.revealOutput();
    expectShown({m_fixture.url(u"last"_s)});
}

TEST_F(Output, IsShownAsTheDestinationIfThatIsThere)
{
    m_model.lastOutputFolder = m_fixture.url(u"gone"_s);
    m_model.outputFolderURL = folder(u"out"_s);
    m_model.artist = u"The Artist"_s;
    folder(u"out/The Artist"_s);
    m_model.revealOutput();
    expectShown({m_fixture.url(u"out/The Artist"_s)});
}

TEST_F(Output, IsShownAsTheOutputFolderIfNothingElseIsThere)
{
    m_model.lastOutputFolder = m_fixture.url(u"gone"_s);
    m_model.outputFolderURL = folder(u"out"_s);
    m_model.artist = u"The Artist"_s;
    m_model.revealOutput();
    expectShown({m_fixture.url(u"out"_s)});
}

TEST_F(Output, IsShownAsTheLastOfThePlacesIfNoneIsThere)
{
    m_model.lastOutputFolder = m_fixture.url(u"gone"_s);
    m_model.outputFolderURL = m_fixture.url(u"gone too"_s);
    m_model.artist = u"The Artist"_s;
    m_model.revealOutput();
    expectShown({m_fixture.url(u"gone too"_s)});
}

TEST_F(Output, IsShownAsTheLastFolderWithoutAnOutputFolder)
{
    m_model.lastOutputFolder = m_fixture.url(u"gone"_s);
    m_model.revealOutput();
    expectShown({m_fixture.url(u"gone"_s)});
}

TEST_F(Output, IsNotShownIfThereIsNone)
{
    m_model.revealOutput();
    m_model.revealLog();
    m_fixture.settle();
    EXPECT_TRUE(m_fixture.fileViewer().selections().isEmpty());
}

TEST_F(Output, ShowsTheLog)
{
    haveLog();
    m_model.encodedFiles = QList{m_fixture.url(u"a.flac"_s)};
    m_model.revealLog();
    expectShown({m_fixture.url(u"job.log"_s)});
}

TEST_F(Output, ShowsTheFilesOnceTheLogIsGone)
{
    haveLog();
    m_model.encodedFiles = QList{m_fixture.url(u"a.flac"_s)};
    ASSERT_TRUE(QFile::remove(m_fixture.path(u"job.log"_s)));
    m_model.revealLog();
    expectShown(m_model.encodedFiles.value());
}

TEST_F(Output, TellsThatThereIsALog)
{
    QProperty<bool> observer;
    observer.setBinding([this] { return m_model.hasLogFile(); });
    EXPECT_FALSE(observer.value());
    haveLog();
    EXPECT_TRUE(observer.value());
    m_fixture.settle();
    EXPECT_TRUE(observer.value());
    m_model.lastLogURL = std::nullopt;
    EXPECT_FALSE(observer.value());
}

TEST_F(Output, TellsThatTheLogHasBeenDeleted)
{
    QProperty<bool> observer;
    observer.setBinding([this] { return m_model.hasLogFile(); });
    haveLog();
    m_fixture.settle();
    ASSERT_TRUE(QFile::remove(m_fixture.path(u"job.log"_s)));
    EXPECT_TRUE(test::eventually([&] { return !observer.value(); }));
}

TEST_F(Output, LooksForTheLogWhenItIsAsked)
{
    folder(u"above"_s);
    folder(u"above/albums"_s);
    test::writeFile(m_fixture.path(u"above/albums/job.log"_s), "log");
    m_model.lastLogURL = m_fixture.url(u"above/albums/job.log"_s);
    m_fixture.settle();
    // Nothing tells of a change further up.
    ASSERT_TRUE(QFile::rename(m_fixture.path(u"above"_s), m_fixture.path(u"moved"_s)));
    m_fixture.settle();
    EXPECT_TRUE(m_model.hasLogFile());
    m_model.lookForLog();
    EXPECT_TRUE(test::eventually([this] { return !m_model.hasLogFile(); }));
}

TEST(FinishedJob, IsShownByItsFilesAndItsLog)
{
    const ScriptedTools tools;
    ModelFixture fixture({.tools = tools.location()});
    fixture.prepareJob(tools.source());
    fixture.runJob();
    EXPECT_TRUE(fixture->canRevealOutput());
    fixture->revealOutput();
    fixture->revealLog();
    fixture.settle();
    EXPECT_EQ(fixture.fileViewer().selections(),
              (QList<QList<QUrl>>{{QUrl::fromLocalFile(fixture.outputPath(u"01-One.flac"_s))},
                                  {fixture->lastLogURL.value().value()}}));
}

} // namespace tonearm
