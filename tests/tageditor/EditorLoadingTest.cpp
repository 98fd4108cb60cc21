// SPDX-License-Identifier: GPL-3.0-or-later
// How folders come into the editor.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/EditorFixture.h"
#include "helpers/Printing.h"
#include "helpers/StandInTools.h"

#include <gtest/gtest.h>

#include <QDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::EditorFixture;
using test::tagList;
using Field = EditableTagField;

namespace {

class EditorLoading : public testing::Test
{
protected:
    QUrl makeFolder(const QString &name, const QStringList &files)
    {
        EXPECT_TRUE(QDir().mkpath(m_fixture.path(name)));
        for (const QString &file : files)
            test::writeFile(m_fixture.path(name + u'/' + file), "no song");
        return m_fixture.url(name);
    }

    EditorFixture m_fixture;
    MetadataEditorModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(EditorLoading, ShowsAndSelectsEverythingThatCanBeRead)
{
    const test::SongFolder &songs = m_fixture.songs();
    songs.makeSong(u"a.flac"_s, tagList(u"2"_s, u"1"_s, u"A"_s));
    songs.makeSong(u"c.mp3"_s, tagList(u"1"_s, u"2"_s, u"B"_s));
    songs.makeSong(u"b.m4a"_s, tagList(u"1"_s, u"10"_s, u"C"_s));
    test::writeFile(songs.path(u"corrupt.flac"_s), "no song");
    m_fixture.open();
    EXPECT_EQ(m_fixture.names(), QStringList({u"corrupt.flac"_s, u"c.mp3"_s, u"b.m4a"_s, u"a.flac"_s}));
    EXPECT_EQ(m_model.selectionSummary(), u"4 files · 3 selected"_s);
    EXPECT_EQ(m_fixture.row(u"corrupt.flac"_s).unreadableReason, u"Tags couldn't be read."_s);
    EXPECT_EQ(m_fixture.row(u"c.mp3"_s), songs.load(u"c.mp3"_s));
    EXPECT_EQ(m_model.folderURL.value(), songs.url());
    EXPECT_TRUE(m_model.hasLoadedFolder.value());
    EXPECT_EQ(m_model.loadProgress.value(), 0);
    EXPECT_EQ(m_model.alert.value(), std::nullopt);
}

TEST_F(EditorLoading, NeverSelectsACorruptRow)
{
    m_fixture.open(makeFolder(u"f"_s, {u"a.flac"_s}));
    m_fixture.select({u"a.flac"_s});
    EXPECT_TRUE(m_model.selection.value().isEmpty());
    m_model.setValue(u"A"_s, Field::artist);
    EXPECT_FALSE(m_model.hasPendingChanges());
}

TEST_F(EditorLoading, CountsWhatCantBeEdited)
{
    m_fixture.open(makeFolder(u"f"_s, {u"a.wav"_s, u"b.wav"_s, u"c.WAV"_s, u"d.txt"_s}));
    EXPECT_TRUE(m_model.files.value().isEmpty());
    EXPECT_EQ(m_model.skippedAudioCount.value(), 3);
    EXPECT_TRUE(m_model.hasLoadedFolder.value());
}

TEST_F(EditorLoading, TellsOfAFolderThatCantBeRead)
{
    m_fixture.open(makeFolder(u"f"_s, {u"a.wav"_s}));
    m_fixture.open(m_fixture.url(u"none"_s));
    ASSERT_TRUE(m_model.alert.value());
    EXPECT_EQ(m_model.alert.value()->title, u"Couldn't Read That Folder"_s);
    EXPECT_EQ(m_model.alert.value()->message,
              m_fixture.url(u"none"_s).toLocalFile() + u": No such file or directory."_s);
    EXPECT_TRUE(m_model.files.value().isEmpty());
    EXPECT_EQ(m_model.skippedAudioCount.value(), 1);
    EXPECT_EQ(m_model.folderURL.value(), m_fixture.url(u"none"_s));
}

TEST_F(EditorLoading, StartsAfreshButKeepsTheStandingChoice)
{
    m_fixture.show({test::rowOf(u"a"_s)});
    m_model.setValue(u"A"_s, Field::artist);
    m_model.removeArtwork();
    m_model.setOptimizing(true);
    m_model.completionMessage = u"Saved 1 file."_s;
    m_model.saveStatus = u"Saving"_s;
    m_model.saveFailures = {SaveFailure()};
    m_model.dropsUnwritableTags = true;
    m_model.droppedTagReports = {RefusedSave()};
    m_model.refusedSaves = {RefusedSave()};
    m_model.artworkFingerprints = QHash<QUrl, ArtworkFingerprint>{{test::rowOf(u"a"_s).url, {}}};
    m_model.artworkPreviews = QHash<QUrl, QImage>{{test::rowOf(u"a"_s).url, {}}};
    m_fixture.open(makeFolder(u"f"_s, {}));
    EXPECT_TRUE(m_model.files.value().isEmpty());
    EXPECT_TRUE(m_model.selection.value().isEmpty());
    EXPECT_EQ(m_model.changes.value(), TagChangeSet());
    EXPECT_EQ(m_model.completionMessage.value(), std::nullopt);
    EXPECT_EQ(m_model.saveStatus.value(), std::nullopt);
    EXPECT_TRUE(m_model.saveFailures.value().isEmpty());
    EXPECT_TRUE(m_model.artworkFingerprints.value().isEmpty());
    EXPECT_TRUE(m_model.artworkPreviews.value().isEmpty());
    EXPECT_TRUE(m_model.dropsUnwritableTags.value());
    EXPECT_EQ(m_model.droppedTagReports.value().size(), 1);
    EXPECT_EQ(m_model.refusedSaves.value().size(), 1);
}

TEST_F(EditorLoading, AsksForAFolderInAPanel)
{
    const QUrl folder = makeFolder(u"f"_s, {u"a.wav"_s});
    m_fixture.panels().prepareAnswer(folder);
    m_model.chooseFolder();
    EXPECT_TRUE(test::eventually([&] { return m_model.folderURL.value() == folder; }));
    const OpenPanelRequest request = m_fixture.panels().requests().last();
    const OpenPanelRequest expected = {
        .title = u"Choose Folder"_s,
        .prompt = u"Choose"_s,
        .target = OpenPanelRequest::Target::folder,
        .extensions = {},
        .message = u"Choose a folder of FLAC, MP3 or M4A files. Subfolders aren't searched."_s,
        .startFolder = {},
        .offersNewFolders = false};
    EXPECT_EQ(request, expected);
    EXPECT_EQ(m_model.pendingFolderChange.value(), std::nullopt);
}

TEST_F(EditorLoading, StartsThePanelInTheOpenFolder)
{
    const QUrl folder = makeFolder(u"f"_s, {u"a.wav"_s});
    m_model.openFolder(folder);
    m_fixture.panels().prepareAnswer(std::nullopt);
    m_model.chooseFolder();
    ASSERT_TRUE(test::eventually([&] { return m_fixture.panels().requests().size() == 1; }));
    EXPECT_EQ(m_fixture.panels().requests().first().startFolder, folder);
}

TEST_F(EditorLoading, AsksBeforeEditsAreLost)
{
    const QUrl folder = makeFolder(u"f"_s, {});
    m_fixture.show({test::rowOf(u"a"_s)});
    m_model.setValue(u"A"_s, Field::artist);
    const TagChangeSet edits = m_model.changes.value();
    m_fixture.panels().prepareAnswer(folder);
    m_model.chooseFolder();
    ASSERT_TRUE(test::eventually([&] { return m_model.pendingFolderChange.value().has_value(); }));
    EXPECT_EQ(m_model.pendingFolderChange.value()->url, folder);
    EXPECT_EQ(m_model.folderURL.value(), std::nullopt);
    EXPECT_EQ(m_model.changes.value(), edits);

    m_model.pendingFolderChange = std::nullopt;
    m_model.confirmFolderChange();
    EXPECT_EQ(m_model.folderURL.value(), std::nullopt);
    EXPECT_EQ(m_model.changes.value(), edits);

    m_fixture.panels().prepareAnswer(folder);
    m_model.chooseFolder();
    ASSERT_TRUE(test::eventually([&] { return m_model.pendingFolderChange.value().has_value(); }));
    m_model.confirmFolderChange();
    EXPECT_EQ(m_model.pendingFolderChange.value(), std::nullopt);
    EXPECT_EQ(m_model.folderURL.value(), folder);
    EXPECT_EQ(m_model.changes.value(), TagChangeSet());
    EXPECT_TRUE(test::eventually([&] { return !m_model.isLoading.value(); }));
}

TEST_F(EditorLoading, StaysAsItIsWhenThePanelIsDismissed)
{
    m_fixture.panels().prepareAnswer(std::nullopt);
    m_model.chooseFolder();
    ASSERT_TRUE(test::eventually([&] { return m_fixture.panels().requests().size() == 1; }));
    QCoreApplication::processEvents();
    EXPECT_FALSE(m_model.hasLoadedFolder.value());
}

TEST_F(EditorLoading, FindsTheTools)
{
    m_model.ffmpegProblem = u"Missing."_s;
    m_model.checkTools();
    EXPECT_EQ(m_model.ffmpegProblem.value(), std::nullopt);
}

TEST(EditorTools, AreMissedByName)
{
    for (const QString &missing : {u"ffmpeg"_s, u"ffprobe"_s}) {
        test::StandInTools tools;
        tools.add(missing == u"ffmpeg"_s ? u"ffprobe"_s : u"ffmpeg"_s, "exit 0");
        EditorFixture fixture(tools.location());
        fixture.model().checkTools();
        const FFmpegNotFoundError error(missing);
        EXPECT_EQ(fixture.model().ffmpegProblem.value(),
                  QString(error.description() + u' ' + error.recoverySuggestion().value_or(QString())));
    }
}

TEST(EditorTools, AreLookedForInTheirOrder)
{
    const test::StandInTools none;
    EditorFixture fixture(none.location());
    fixture.model().checkTools();
    ASSERT_TRUE(fixture.model().ffmpegProblem.value());
    EXPECT_TRUE(fixture.model().ffmpegProblem.value()->startsWith(u"ffmpeg could not be found. "_s));
}

} // namespace tonearm
