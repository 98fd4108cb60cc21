// SPDX-License-Identifier: GPL-3.0-or-later
// The cover of a job that runs, or that is started while the cover is still being made ready.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/NoisyPicture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ScriptedTools;
using testing::Contains;
using testing::Not;

namespace {

class JobCover : public testing::Test
{
protected:
    void SetUp() override
    {
        // As ffmpeg does, it fails without any of its inputs.
        m_tools.setEncoding(ScriptedTools::waiting("go") + R"(
            for argument in "$@"; do
                [ "$last" != -i ] || [ -e "$argument" ] || exit 1
                last=$argument
            done
            echo sound > "$output")");
        m_fixture.settings().setArtworkSizeBudgetKilobytes(50);
        m_fixture.prepareJob(m_tools.source());
    }

    // A picture that has to be shrunk, so that what is embedded is the model's own file.
    QUrl picture(const QString &name)
    {
        EXPECT_TRUE(test::noisyPicture(300).save(m_fixture.path(name), "PNG"));
        return m_fixture.url(name);
    }

    void waitForCover()
    {
        ASSERT_TRUE(test::eventually([this] { return m_model.coverArt.value().has_value(); }));
    }

    QString cover() { return m_model.coverArt.value().value().url.toLocalFile(); }

    void start()
    {
        m_model.startEncoding();
        ASSERT_TRUE(test::eventually([this] { return m_tools.hasStarted(1); }));
    }

    void letEnd()
    {
        m_tools.release(u"go"_s);
        m_fixture.waitForJobEnd();
    }

    ScriptedTools m_tools{{{0, 1.5, u"One"_s}, {1.5, 4, u"Two"_s}}};
    ModelFixture m_fixture{{.tools = m_tools.location()}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(JobCover, StaysForTheJobWhenItIsRemoved)
{
    m_model.useCoverArtFile(picture(u"a.png"_s));
    waitForCover();
    const QString embedded = cover();
    start();
    m_model.clearCoverArt();
    m_fixture.settle();
    EXPECT_FALSE(m_model.coverArt.value());
    EXPECT_TRUE(QFile::exists(embedded));
    letEnd();
    EXPECT_EQ(m_model.statusText(), u"Encoded 2 tracks to out."_s);
    EXPECT_THAT(m_tools.argumentsOfTrack(2), Contains(embedded));
    m_fixture.settle();
    EXPECT_EQ(m_fixture.temporaryArtwork(), QStringList());
}

TEST_F(JobCover, StaysForTheJobWhenAnotherTakesItsPlace)
{
    m_model.useCoverArtFile(picture(u"a.png"_s));
    waitForCover();
    const QString embedded = cover();
    start();
    m_model.useCoverArtFile(picture(u"b.png"_s));
    ASSERT_TRUE(test::eventually([&] { return cover() != embedded; }));
    m_fixture.settle();
    EXPECT_TRUE(QFile::exists(embedded));
    letEnd();
    EXPECT_THAT(m_tools.argumentsOfTrack(2), Contains(embedded));
    m_fixture.settle();
    EXPECT_FALSE(QFile::exists(embedded));
    EXPECT_TRUE(QFile::exists(cover())) << "the job doesn't touch what came after";
}

TEST_F(JobCover, IsWaitedForWhileItIsBeingMadeReady)
{
    m_model.useCoverArtFile(picture(u"a.png"_s));
    EXPECT_TRUE(m_model.isPreparingCoverArt.value());
    start();
    EXPECT_FALSE(m_model.isPreparingCoverArt.value());
    EXPECT_THAT(m_tools.argumentsOfTrack(1), Contains(cover()));
    letEnd();
}

TEST_F(JobCover, IsTheLaterOfTwoThatAreBeingMadeReady)
{
    m_model.useCoverArtFile(picture(u"a.png"_s));
    const QUrl later = picture(u"b.png"_s);
    m_model.useCoverArtFile(later);
    start();
    EXPECT_EQ(m_model.coverArt.value()->originalURL, later);
    EXPECT_THAT(m_tools.argumentsOfTrack(1), Contains(cover()));
    letEnd();
}

TEST_F(JobCover, IsNoneThatWasClearedWhileItWasBeingMadeReady)
{
    m_model.useCoverArtFile(picture(u"a.png"_s));
    m_model.clearCoverArt();
    EXPECT_FALSE(m_model.isPreparingCoverArt.value());
    m_tools.setEncoding("echo sound > \"$output\"");
    m_fixture.runJob();
    EXPECT_THAT(m_tools.argumentsOfTrack(1), Contains(u"-vn"_s));
    m_fixture.settle();
    EXPECT_EQ(m_fixture.temporaryArtwork(), QStringList());
}

TEST_F(JobCover, IsNoneThatWasClearedWhileAJobWaitedForIt)
{
    m_tools.setEncoding("echo sound > \"$output\"");
    m_model.useCoverArtFile(picture(u"a.png"_s));
    m_model.startEncoding();
    QCoreApplication::sendPostedEvents();
    EXPECT_TRUE(m_model.isPreparingCoverArt.value());
    m_model.clearCoverArt();
    m_fixture.waitForJobEnd();
    EXPECT_THAT(m_tools.argumentsOfTrack(1), Contains(u"-vn"_s));
}

TEST_F(JobCover, IsTheOneChosenBehindTheQuestionAboutExistingFiles)
{
    ASSERT_TRUE(QDir().mkpath(m_fixture.path(u"out"_s)));
    test::writeFile(m_fixture.path(u"out/01-One.flac"_s), "older");
    m_model.startEncoding();
    ASSERT_TRUE(test::eventually([this] { return m_model.pendingOverwrite.value().has_value(); }));
    const QUrl chosen = picture(u"a.png"_s);
    m_model.useCoverArtFile(chosen);
    m_model.confirmOverwrite();
    ASSERT_TRUE(test::eventually([this] { return m_tools.hasStarted(1); }));
    EXPECT_FALSE(m_model.pendingOverwrite.value()) << "these files have been asked about";
    EXPECT_EQ(m_model.coverArt.value()->originalURL, chosen);
    EXPECT_THAT(m_tools.argumentsOfTrack(1), Contains(cover()));
    letEnd();
}

TEST_F(JobCover, IsNoneThatTurnsOutToBeNoPicture)
{
    QFile file(m_fixture.path(u"a.png"_s));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("not a picture");
    file.close();
    m_model.useCoverArtFile(m_fixture.url(u"a.png"_s));
    m_tools.setEncoding("echo sound > \"$output\"");
    m_fixture.runJob();
    EXPECT_FALSE(m_model.isPreparingCoverArt.value());
    EXPECT_THAT(m_tools.argumentsOfTrack(1), Contains(u"-vn"_s));
    ASSERT_TRUE(m_model.alert.value());
    EXPECT_EQ(m_model.alert.value()->title, u"Couldn't Read Image"_s);
}

TEST_F(JobCover, CountsAsTheUsersWorkWhileItIsBeingMadeReady)
{
    m_model.useCoverArtFile(picture(u"a.png"_s));
    m_model.requestFile(QUrl::fromLocalFile(m_tools.source()));
    ASSERT_TRUE(m_model.pendingSourceChange.value());
    EXPECT_EQ(m_model.pendingSourceChange.value()->summary, u"the cover art you chose"_s);
}

TEST_F(JobCover, IsKeptByAJob)
{
    m_model.useCoverArtFile(picture(u"a.png"_s));
    waitForCover();
    const std::optional<PreparedCoverArt> before = m_model.coverArt.value();
    start();
    letEnd();
    EXPECT_EQ(m_model.coverArt.value(), before);
    EXPECT_TRUE(QFile::exists(cover()));
}

} // namespace tonearm
