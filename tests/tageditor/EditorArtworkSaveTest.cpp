// SPDX-License-Identifier: GPL-3.0-or-later
// Saving pictures: which are put in, made smaller, and taken out.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Mutagen.h"
#include "helpers/Printing.h"
#include "tageditor/EditorSave.h"

#include <gtest/gtest.h>

#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::EditorSave;
using Field = EditableTagField;

namespace {

using EditorArtworkSave = EditorSave;

} // namespace

TEST_F(EditorArtworkSave, CountsAFileThatIsCompletedAfterTheStopAndBeginsNoOther)
{
    m_fixture.settings().setArtworkSizeBudgetKilobytes(AppSettings::smallestArtworkBudget);
    m_fixture.songs().makeSongWithCover(u"b.flac"_s, m_fixture.makeNoise(u"cover.jpg"_s, 300).toLocalFile());
    for (const QString &name : {u"a.flac"_s, u"c.flac"_s})
        m_fixture.songs().makeSong(name, {});
    m_fixture.open();
    ASSERT_TRUE(test::eventually([this] { return m_model.hasArtworkOverBudget(); }));
    m_model.dropsUnwritableTags = true;
    m_model.setOptimizing(true);
    m_fixture.select({u"a.flac"_s, u"c.flac"_s});
    m_model.setValue(u"New"_s, Field::artist);
    const auto stopping = m_model.saveStatus.addNotifier([this] {
        if (m_model.saveStatus.value() != u"Saving 2 of 3: b.flac"_s)
            return;
        m_model.stopSaving();
        // So that there is nothing left to be done for it.
        m_fixture.settings().setArtworkSizeBudgetKilobytes(AppSettings::largestArtworkBudget);
    });
    m_fixture.save();
    expectLine(u"Saved 2 files · 1 held back · saving was cancelled."_s);
    EXPECT_EQ(artistOf(u"a.flac"_s), u"New"_s);
    EXPECT_NE(artistOf(u"c.flac"_s), u"New"_s);
    EXPECT_FALSE(m_statuses.contains(u"Saving 3 of 3: c.flac"_s));
}

TEST_F(EditorArtworkSave, PutsInAChosenPictureAndTakesOneOut)
{
    makeSongs({u"a.flac"_s, u"b.flac"_s});
    const QUrl cover = m_fixture.makeNoise(u"cover.jpg"_s, 32);
    ASSERT_TRUE(m_model.acceptImage(cover));
    ASSERT_TRUE(test::eventually([this] { return m_model.chosenArtwork.value().has_value(); }));
    m_fixture.save();
    expectLine(u"Saved 2 files."_s);
    EXPECT_EQ(m_model.chosenArtwork.value(), std::nullopt);
    EXPECT_EQ(m_model.changes.value(), TagChangeSet());
    ASSERT_NO_FATAL_FAILURE(m_fixture.waitForArtwork());
    EXPECT_EQ(m_model.artworkState().kind, EditorArtworkState::Kind::image);
    EXPECT_EQ(m_model.artworkFingerprints.value().size(), 2);

    m_fixture.select({u"a.flac"_s});
    m_model.removeArtwork();
    m_fixture.save();
    expectLine(u"Saved 1 file."_s);
    EXPECT_EQ(m_model.artworkState(), EditorArtworkState::note(u"No artwork"_s));
    EXPECT_EQ(test::mutagenPictures(m_fixture.songs().path(u"b.flac"_s)).size(), 1);
    EXPECT_TRUE(test::mutagenPictures(m_fixture.songs().path(u"a.flac"_s)).isEmpty());
}

TEST_F(EditorArtworkSave, ShrinksPicturesThatAreOverTheLimit)
{
    m_fixture.settings().setArtworkSizeBudgetKilobytes(AppSettings::smallestArtworkBudget);
    m_fixture.songs().makeSongWithCover(u"a.flac"_s, m_fixture.makeNoise(u"cover.jpg"_s, 300).toLocalFile());
    m_fixture.open();
    ASSERT_NO_FATAL_FAILURE(m_fixture.waitForArtwork());
    ASSERT_TRUE(m_model.hasArtworkOverBudget());
    m_model.setOptimizing(true);
    m_fixture.save();
    expectLine(u"Saved 1 file."_s);
    ASSERT_NO_FATAL_FAILURE(m_fixture.waitForArtwork());
    EXPECT_EQ(m_model.artworkState().kind, EditorArtworkState::Kind::image);
    EXPECT_FALSE(m_model.hasArtworkOverBudget());
    EXPECT_TRUE(m_fixture.songs().temporaryFiles().filter(u"-resized"_s).isEmpty());
}

TEST_F(EditorArtworkSave, CountsAFileAsSavedThatNeedsNoShrinkingAnyMore)
{
    m_fixture.settings().setArtworkSizeBudgetKilobytes(AppSettings::smallestArtworkBudget);
    m_fixture.songs().makeSongWithCover(u"a.flac"_s, m_fixture.makeNoise(u"cover.jpg"_s, 300).toLocalFile());
    m_fixture.open();
    ASSERT_NO_FATAL_FAILURE(m_fixture.waitForArtwork());
    m_model.setOptimizing(true);
    const QByteArray before = test::readFile(m_fixture.songs().path(u"a.flac"_s));
    m_model.save();
    m_fixture.settings().setArtworkSizeBudgetKilobytes(AppSettings::largestArtworkBudget);
    m_fixture.waitForSave();
    expectLine(u"Saved 1 file."_s);
    EXPECT_TRUE(test::readFile(m_fixture.songs().path(u"a.flac"_s)) == before);
    EXPECT_TRUE(m_model.changes.value().optimizing.isEmpty());
}

TEST_F(EditorArtworkSave, FailsForTheFileWhosePictureCantBeShrunk)
{
    m_fixture.settings().setArtworkSizeBudgetKilobytes(AppSettings::smallestArtworkBudget);
    m_fixture.songs().makeSongWithCover(u"a.flac"_s, m_fixture.makeNoise(u"cover.jpg"_s, 300).toLocalFile());
    m_fixture.open();
    ASSERT_NO_FATAL_FAILURE(m_fixture.waitForArtwork());
    m_model.setOptimizing(true);
    const QString extracted = m_model.artworkFingerprints.value().begin()->extractedURL.toLocalFile();
    ASSERT_TRUE(QFile::remove(extracted));
    m_fixture.save();
    expectLine(u"No files were saved · 1 held back · 1 couldn't be written."_s);
    EXPECT_EQ(m_model.saveFailures.value().size(), 1);
}

} // namespace tonearm
