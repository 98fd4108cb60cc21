// SPDX-License-Identifier: GPL-3.0-or-later
// What is left in the model when the window is closed.
#include "helpers/Await.h"
#include "helpers/EditorFixture.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::EditorFixture;
using test::rowOf;
using Field = EditableTagField;

namespace {

class EditorClosing : public testing::Test
{
protected:
    // Chooses a picture that has to be made smaller, which takes a file.
    void chooseArtwork()
    {
        AudioFileTags tags;
        tags.hasAttachedPicture = true;
        const EditableAudioFile row = rowOf(u"a"_s, tags);
        const ArtworkFingerprint large = {.digest = u"x"_s,
                                          .byteCount = AppSettings::smallestArtworkBudget * 1024 + 1,
                                          .pixelWidth = 40,
                                          .pixelHeight = 30,
                                          .extractedURL = {}};
        m_fixture.settings().setArtworkSizeBudgetKilobytes(AppSettings::smallestArtworkBudget);
        m_model.artworkFingerprints = QHash<QUrl, ArtworkFingerprint>{{row.url, large}};
        m_model.artworkPreviews = QHash<QUrl, QImage>{{row.url, QImage(8, 8, QImage::Format_RGB32)}};
        m_fixture.show({row});
        m_model.setOptimizing(true);
        ASSERT_TRUE(m_model.acceptImage(m_fixture.makeNoise(u"front.jpg"_s, 300)));
        ASSERT_TRUE(test::eventually([this] { return m_model.chosenArtwork.value().has_value(); }));
        ASSERT_NE(m_model.chosenArtwork.value()->url, m_model.chosenArtwork.value()->originalURL);
    }

    EditorFixture m_fixture;
    MetadataEditorModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(EditorClosing, EmptiesTheFolder)
{
    m_fixture.show({rowOf(u"a"_s)});
    m_model.folderURL = m_fixture.songs().url();
    m_model.hasLoadedFolder = true;
    m_model.skippedAudioCount = 3;
    m_model.reset();
    EXPECT_EQ(m_model.folderURL.value(), std::nullopt);
    EXPECT_FALSE(m_model.hasLoadedFolder.value());
    EXPECT_EQ(m_model.skippedAudioCount.value(), 0);
    EXPECT_TRUE(m_model.files.value().isEmpty());
    EXPECT_TRUE(m_model.selection.value().isEmpty());
}

TEST_F(EditorClosing, DropsEditsAndArtwork)
{
    ASSERT_NO_FATAL_FAILURE(chooseArtwork());
    m_model.setValue(u"New"_s, Field::artist);
    ASSERT_EQ(m_model.changes.value().fieldEdits.size(), 1);
    ASSERT_EQ(m_model.changes.value().artworkIntents.size(), 1);
    ASSERT_EQ(m_model.changes.value().optimizing.size(), 1);
    const QString file = m_model.chosenArtwork.value()->url.toLocalFile();
    m_model.reset();
    EXPECT_EQ(m_model.changes.value(), TagChangeSet());
    EXPECT_EQ(m_model.chosenArtwork.value(), std::nullopt);
    EXPECT_EQ(m_model.chosenArtworkPreview.value(), std::nullopt);
    EXPECT_TRUE(test::eventually([&] { return !QFile::exists(file); }));
    EXPECT_TRUE(m_model.artworkFingerprints.value().isEmpty());
    EXPECT_TRUE(m_model.artworkPreviews.value().isEmpty());
}

TEST_F(EditorClosing, EndsTheQuestions)
{
    m_model.isConfirmingCancel = true;
    m_model.pendingFolderChange = PendingFolderChange();
    m_model.refusedSaves = {RefusedSave()};
    m_model.reset();
    EXPECT_FALSE(m_model.isConfirmingCancel.value());
    EXPECT_EQ(m_model.pendingFolderChange.value(), std::nullopt);
    EXPECT_TRUE(m_model.refusedSaves.value().isEmpty());
}

TEST_F(EditorClosing, ForgetsTheLastSaveAndTheStandingChoice)
{
    m_model.saveFailures = {SaveFailure()};
    m_model.droppedTagReports = {RefusedSave()};
    m_model.dropsUnwritableTags = true;
    m_model.completionMessage = u"Saved 1 file."_s;
    m_model.saveStatus = u"Saving"_s;
    m_model.reset();
    EXPECT_TRUE(m_model.saveFailures.value().isEmpty());
    EXPECT_TRUE(m_model.droppedTagReports.value().isEmpty());
    EXPECT_FALSE(m_model.dropsUnwritableTags.value());
    EXPECT_EQ(m_model.completionMessage.value(), std::nullopt);
    EXPECT_EQ(m_model.saveStatus.value(), std::nullopt);
}

TEST_F(EditorClosing, LeavesAllElseToTheNextWindow)
{
    const QList<RowComparator> order = {{RowComparator::Key::fileName, Qt::DescendingOrder}};
    const QList<EditableAudioFile> targets = {rowOf(u"a"_s)};
    const AlertContent alert(u"One File Couldn't Be Saved"_s, u"a"_s);
    m_model.setSortOrder(order);
    m_model.pendingSaveTargets = targets;
    m_model.alert = alert;
    m_model.ffmpegProblem = u"Missing."_s;
    m_model.reset();
    EXPECT_EQ(m_model.sortOrder.value(), order);
    EXPECT_EQ(m_model.pendingSaveTargets.value(), targets);
    EXPECT_EQ(m_model.alert.value(), alert);
    EXPECT_EQ(m_model.ffmpegProblem.value(), u"Missing."_s);
}

} // namespace tonearm
