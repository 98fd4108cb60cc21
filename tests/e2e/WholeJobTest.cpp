// SPDX-License-Identifier: GPL-3.0-or-later
// Whole jobs from the window, on real sources with the tools that ship with the application.
#include "e2e/ShownWindow.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "helpers/Sources.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct WholeJobTest : testing::Test
{
    WholeJobTest() { surroundings.findTools(); }

    void chooseByDrop(const QString &source)
    {
        ASSERT_TRUE(QDir().mkpath(surroundings.outputPath()));
        EXPECT_TRUE(drop(window.find(u"Input file drop area"_s), {QUrl::fromLocalFile(source)}));
        EXPECT_TRUE(drop(window.find(u"Output folder drop area"_s), {surroundings.url(u"out"_s)}));
        window.waitFor(u"Song title for chapter 1"_s);
    }

    void describeAlbum()
    {
        window.fillIn(u"Artist"_s, u"The Artist"_s);
        window.fillIn(u"Album Title"_s, u"The Album"_s);
        window.fillIn(u"Year"_s, u"1969"_s);
        window.fillIn(u"Disc"_s, u"1"_s);
        window.fillIn(u"Number of discs"_s, u"2"_s);
        window.fillIn(u"Genre"_s, u"Jazz"_s);
    }

    QStringList results() { return namesIn(surroundings.outputPath(u"The Artist/The Album"_s)); }

    ModelFixture surroundings;
    AppModel &model = surroundings.model();
    ShownWindow window{model};
};

} // namespace

TEST_F(WholeJobTest, TurnsAFileIntoTaggedTracks)
{
    ASSERT_NO_FATAL_FAILURE(chooseByDrop(plainSource()));
    describeAlbum();
    window.fillIn(u"Song title for chapter 2"_s, u"Zwei: Ein Lied"_s);
    click(window.button(u"Encode to FLAC"_s));
    window.waitFor(u"Encoded 2 tracks to The Album"_s);
    const QString log = model.lastLogURL.value().value().fileName();
    EXPECT_EQ(results(), (QStringList{u"01-One.flac"_s, model.encodedFiles.value()[1].fileName(), log}));
    EXPECT_EQ(
        tagsWithoutEncoder(model.encodedFiles.value()[1].toLocalFile()),
        (QStringList{u"ALBUMARTIST=The Artist"_s, u"DISCNUMBER=1"_s, u"DISCTOTAL=2"_s, u"TRACKNUMBER=2"_s,
                     u"TRACKTOTAL=2"_s, u"album=The Album"_s, u"artist=The Artist"_s, u"date=1969"_s,
                     u"genre=Jazz"_s, u"title=Zwei: Ein Lied"_s}));
    EXPECT_EQ(decodedAudio(model.encodedFiles.value()[0].toLocalFile()), bareCut(plainSource(), {0, 1}));
}

TEST_F(WholeJobTest, AsksBeforeItOverwrites)
{
    ASSERT_NO_FATAL_FAILURE(chooseByDrop(plainSource()));
    describeAlbum();
    click(window.button(u"Encode to FLAC"_s));
    window.waitFor(u"Encoded 2 tracks to The Album"_s);
    window.fillIn(u"Genre"_s, u"Blues"_s);
    click(window.button(u"Encode to FLAC"_s));
    EXPECT_EQ(window.dialog().text(), u"Replace 2 existing files?"_s);
    window.answer(u"Overwrite"_s);
    ASSERT_NO_FATAL_FAILURE(surroundings.waitForJobEnd());
    ASSERT_NO_FATAL_FAILURE(surroundings.waitForJobEnd());
    for (const QUrl &file : model.encodedFiles.value())
        EXPECT_TRUE(flacTags(file.toLocalFile()).contains(u"genre=Blues"_s)) << file.fileName().toStdString();
}

TEST_F(WholeJobTest, TakesTheNextFileAfterAFinishedJobWithoutAQuestion)
{
    ASSERT_NO_FATAL_FAILURE(chooseByDrop(plainSource()));
    describeAlbum();
    window.fillIn(u"Song title for chapter 1"_s, u"Eins"_s);
    click(window.button(u"Encode to FLAC"_s));
    window.waitFor(u"Encoded 2 tracks to The Album"_s);
    drop(window.find(u"Input file drop area"_s), {QUrl::fromLocalFile(plainSource())});
    EXPECT_TRUE(window.dialogs().isEmpty());
    EXPECT_EQ(window.box(u"Artist"_s).text(), QString());
    window.waitFor(u"Song title for chapter 1"_s);
    EXPECT_EQ(window.titleBox(1).text(), u"One"_s);
}

TEST_F(WholeJobTest, TellsOfASourceItCantRead)
{
    writeFile(surroundings.path(u"noise.mkv"_s), QByteArray(5000, '\x55'));
    drop(window.find(u"Input file drop area"_s), {surroundings.url(u"noise.mkv"_s)});
    EXPECT_EQ(window.dialog().text(), u"Couldn't Read Chapters"_s);
    window.answer(u"OK"_s);
    window.waitUntilUndisturbed();
    EXPECT_TRUE(window.shows<QLabel>(model.currentState.value().errorText()));
    EXPECT_FALSE(window.shows(u"Reading chapters…"_s));
    EXPECT_FALSE(window.button(u"Encode to FLAC"_s).isEnabled());
}

TEST(WholeJob, StopsInTheMiddle)
{
    // The second track is read no faster than it plays.
    ScriptedTools tools({{0, 1, u"Short"_s}, {1, 61, u"Long"_s}});
    tools.setEncoding("if [ $track = 2 ]; then set -- -readrate 1 \"$@\"; fi; exec " +
                      ScriptedTools::realEncoding());
    makeMedia(tools.path(u"long.mkv"_s), {.sampleRate = 8000, .channelLayout = u"mono"_s, .duration = 61});
    ModelFixture surroundings({.tools = tools.location()});
    ShownWindow window(surroundings.model());
    surroundings.prepareJob(tools.path(u"long.mkv"_s));
    click(window.button(u"Encode to FLAC"_s));
    ASSERT_TRUE(eventually([&] { return QFileInfo::exists(surroundings.outputPath(u"02-Long.flac"_s)); }));
    click(window.button(u"Cancel"_s));
    surroundings.waitForJobEnd();
    EXPECT_EQ(surroundings->statusText(), u"Encoding cancelled."_s);
    EXPECT_EQ(namesIn(surroundings.outputPath()),
              (QStringList{u"01-Short.flac"_s, surroundings->lastLogURL.value().value().fileName()}));
    EXPECT_EQ(sampleCount(surroundings.outputPath(u"01-Short.flac"_s)), 8000);
    EXPECT_TRUE(window.button(u"Encode to FLAC"_s).isEnabled());
    EXPECT_TRUE(window.dialogs().isEmpty());
}

TEST(WholeJob, TellsOfAToolThatFails)
{
    ScriptedTools tools({{0, 1, u"One"_s}, {1, 2, u"Two"_s}});
    tools.setEncoding(
        R"(if [ "$track" = 2 ]; then echo "No space left" >&2; exit 1; fi; echo sound > "$output")");
    ModelFixture surroundings({.tools = tools.location()});
    ShownWindow window(surroundings.model());
    surroundings.prepareJob(tools.source());
    click(window.button(u"Encode to FLAC"_s));
    surroundings.waitForJobEnd();
    EXPECT_EQ(window.dialog().text(), u"Encoding Failed"_s);
    EXPECT_TRUE(window.dialog().informativeText().contains(u"No space left"_s));
    window.answer(u"OK"_s);
    window.waitUntilUndisturbed();
    EXPECT_TRUE(window.shows<QLabel>(surroundings->currentState.value().errorText()));
    EXPECT_EQ(namesIn(surroundings.outputPath()).filter(u".flac"_s), QStringList{u"01-One.flac"_s});
    EXPECT_FALSE(window.shows(u"Encoded 2 tracks to out"_s));
    EXPECT_TRUE(window.button(u"Encode to FLAC"_s).isEnabled());
}

} // namespace tonearm
