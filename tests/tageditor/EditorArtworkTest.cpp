// SPDX-License-Identifier: GPL-3.0-or-later
// What the artwork column shows, and what becomes of chosen pictures.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/EditorFixture.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::EditorFixture;
using test::rowOf;
using State = EditorArtworkState;

namespace {

constexpr qint64 smallestBudget = AppSettings::smallestArtworkBudget * 1024;

EditableAudioFile rowWithPicture(const QString &name)
{
    AudioFileTags tags;
    tags.hasAttachedPicture = true;
    return rowOf(name, tags);
}

ArtworkFingerprint picture(const QString &digest, qint64 byteCount = 1000)
{
    return {
        .digest = digest, .byteCount = byteCount, .pixelWidth = 40, .pixelHeight = 30, .extractedURL = {}};
}

QImage image(int side = 8)
{
    QImage made(side, side, QImage::Format_RGB32);
    made.fill(Qt::red);
    return made;
}

// Rows that stand for no files; what is known of their pictures is put in by the test.
class EditorArtwork : public testing::Test
{
protected:
    void show(const QList<EditableAudioFile> &rows, const QList<ArtworkFingerprint> &known = {})
    {
        QHash<QUrl, ArtworkFingerprint> fingerprints;
        QHash<QUrl, QImage> previews;
        for (qsizetype index = 0; index < known.size(); ++index) {
            fingerprints.insert(rows.at(index).url, known.at(index));
            previews.insert(rows.at(index).url, image());
        }
        m_model.artworkFingerprints = fingerprints;
        m_model.artworkPreviews = previews;
        m_fixture.show(rows);
    }

    // Chooses a picture for the selected rows, and waits until it has been taken or refused.
    void choose(const QUrl &url)
    {
        ASSERT_TRUE(m_model.acceptImage(url));
        ASSERT_TRUE(test::eventually([&] {
            return m_model.alert.value() ||
                   (m_model.chosenArtwork.value() && m_model.chosenArtwork.value()->originalURL == url);
        }));
    }

    ArtworkIntent intentOf(const QString &name)
    {
        return m_model.changes.value().artworkIntents.value(rowOf(name).url);
    }

    EditorFixture m_fixture;
    MetadataEditorModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(EditorArtwork, IsReadForASelectionThatStandsForSomeTime)
{
    EXPECT_EQ(MetadataEditorModel::usualArtworkDelay, std::chrono::milliseconds(150));
}

TEST_F(EditorArtwork, ThatIsBeingMadeReadyCountsAsAnEditThatASaveWaitsFor)
{
    show({rowOf(u"a"_s), rowOf(u"b"_s)});
    m_model.setValue(u"New"_s, EditableTagField::title);
    ASSERT_TRUE(m_model.canSave());
    const QUrl cover = m_fixture.makeNoise(u"cover.jpg"_s, 60);
    ASSERT_TRUE(m_model.acceptImage(cover));
    EXPECT_FALSE(m_model.canSave());
    m_model.setValue({}, EditableTagField::title);
    EXPECT_TRUE(m_model.hasPendingChanges());
    EXPECT_TRUE(test::eventually([this] { return m_model.canSave(); }));
    EXPECT_EQ(m_model.chosenArtwork.value()->originalURL, cover);
}

TEST_F(EditorArtwork, ThatIsRefusedHoldsUpNoSave)
{
    show({rowOf(u"a"_s)});
    m_model.setValue(u"New"_s, EditableTagField::title);
    ASSERT_TRUE(m_model.acceptImage(m_fixture.url(u"missing.jpg"_s)));
    EXPECT_FALSE(m_model.canSave());
    EXPECT_TRUE(test::eventually([this] { return m_model.canSave(); }));
    EXPECT_TRUE(m_model.alert.value());
}

TEST_F(EditorArtwork, OfNoSelectionIsANote)
{
    EXPECT_EQ(m_model.artworkState(), State::note(u"No selection"_s));
    EXPECT_EQ(m_model.artworkCaption(), std::nullopt);
    EXPECT_EQ(m_model.artworkForViewer(), std::nullopt);
    EXPECT_FALSE(m_model.canRemoveArtwork());
    EXPECT_FALSE(m_model.acceptImage(m_fixture.makeNoise(u"a.jpg"_s, 8)));
    EXPECT_FALSE(m_model.isOptimizing());
    EXPECT_EQ(m_model.optimizeLabel(), u"Optimize cover art over 600 KB"_s);
}

TEST_F(EditorArtwork, IsANoteWhereThereIsNone)
{
    show({rowOf(u"a"_s), rowOf(u"b"_s)});
    EXPECT_EQ(m_model.artworkState(), State::note(u"No artwork"_s));
    EXPECT_FALSE(m_model.canRemoveArtwork());
    EXPECT_EQ(m_model.artworkCaption(), std::nullopt);
}

TEST_F(EditorArtwork, IsAWarningWhereOnlySomeHaveIt)
{
    show({rowWithPicture(u"a"_s), rowOf(u"b"_s)}, {picture(u"x"_s)});
    EXPECT_EQ(m_model.artworkState(), State::warning(u"Some files have no artwork"_s));
    EXPECT_TRUE(m_model.canRemoveArtwork());
    EXPECT_EQ(m_model.artworkCaption(), std::nullopt);
}

TEST_F(EditorArtwork, IsShownWhereAllHaveTheSame)
{
    show({rowWithPicture(u"a"_s), rowWithPicture(u"b"_s)}, {picture(u"x"_s, 1234567), picture(u"x"_s, 1)});
    EXPECT_EQ(m_model.artworkState(), State::image(image()));
    EXPECT_EQ(m_model.artworkCaption(), u"40 × 30 · 1.2 MB"_s);
    EXPECT_EQ(m_model.artworkForViewer(), (ViewableArtwork{image(), 40, 30, u"40 × 30 · 1.2 MB"_s}));
}

TEST_F(EditorArtwork, IsAWarningWhereItDiffers)
{
    show({rowWithPicture(u"a"_s), rowWithPicture(u"b"_s)}, {picture(u"x"_s), picture(u"y"_s)});
    EXPECT_EQ(m_model.artworkState(), State::warning(u"Selected files have different artwork"_s));
    EXPECT_EQ(m_model.artworkCaption(), std::nullopt);
    EXPECT_EQ(m_model.artworkForViewer(), std::nullopt);
}

TEST_F(EditorArtwork, IsLoadingUntilItHasBeenRead)
{
    show({rowWithPicture(u"a"_s), rowWithPicture(u"b"_s)}, {picture(u"x"_s)});
    EXPECT_EQ(m_model.artworkState(), State::loading());
    ASSERT_NO_FATAL_FAILURE(m_fixture.waitForArtwork());
    EXPECT_EQ(m_model.artworkState(), State::warning(u"Artwork couldn't be read"_s));
    EXPECT_FALSE(m_model.isReadingArtwork.value());
    m_model.isReadingArtwork = true;
    EXPECT_EQ(m_model.artworkState(), State::loading());
    EXPECT_EQ(m_model.alert.value(), std::nullopt);
}

TEST_F(EditorArtwork, ThatCantBeDecodedIsAWarning)
{
    show({rowWithPicture(u"a"_s)}, {picture(u"x"_s)});
    m_model.artworkPreviews = QHash<QUrl, QImage>();
    EXPECT_EQ(m_model.artworkState(), State::warning(u"Artwork couldn't be read"_s));
}

TEST_F(EditorArtwork, ToBeRemovedIsANoteWithoutACaption)
{
    show({rowWithPicture(u"a"_s), rowOf(u"b"_s)}, {picture(u"x"_s)});
    m_model.setSelection({rowOf(u"a"_s).url});
    ASSERT_NE(m_model.artworkCaption(), std::nullopt);
    m_model.completionMessage = u"Saved 1 file."_s;
    m_model.removeArtwork();
    EXPECT_EQ(m_model.artworkState(), State::note(u"Artwork will be removed"_s));
    EXPECT_EQ(m_model.artworkCaption(), std::nullopt);
    EXPECT_EQ(m_model.completionMessage.value(), std::nullopt);
    EXPECT_EQ(m_model.artworkForViewer(), std::nullopt);
    EXPECT_TRUE(m_model.hasPendingChanges());
    m_model.setSelection({rowOf(u"a"_s).url, rowOf(u"b"_s).url});
    EXPECT_EQ(m_model.artworkState(), State::warning(u"Pending artwork differs"_s));
}

TEST_F(EditorArtwork, ToBeRemovedWhereThereIsNoneIsNoChangeButCanBeRemoved)
{
    show({rowOf(u"a"_s)});
    m_model.removeArtwork();
    EXPECT_FALSE(m_model.hasPendingChanges());
    EXPECT_FALSE(m_model.canSave());
    EXPECT_TRUE(m_model.canRemoveArtwork());
    m_model.save();
    EXPECT_FALSE(m_model.isSaving.value());
}

TEST_F(EditorArtwork, IsTheChosenPicture)
{
    show({rowOf(u"a"_s), rowOf(u"b"_s)});
    const QUrl url = m_fixture.makeNoise(u"front.JPG"_s, 60);
    m_model.completionMessage = u"Saved 1 file."_s;
    ASSERT_NO_FATAL_FAILURE(choose(url));
    EXPECT_EQ(m_model.alert.value(), std::nullopt);
    EXPECT_EQ(intentOf(u"a"_s), ArtworkIntent::replace(url));
    EXPECT_EQ(intentOf(u"b"_s), ArtworkIntent::replace(url));
    EXPECT_EQ(m_model.completionMessage.value(), std::nullopt);
    EXPECT_EQ(m_model.artworkState().kind, State::Kind::image);
    EXPECT_EQ(m_model.artworkState().picture.size(), QSize(60, 60));
    const QString caption = u"60 × 60 · "_s + test::byteCountOf(url);
    EXPECT_EQ(m_model.artworkCaption(), caption);
    EXPECT_EQ(m_model.artworkForViewer(),
              (ViewableArtwork{*m_model.chosenArtworkPreview.value(), 60, 60, caption}));
    EXPECT_TRUE(m_model.canRemoveArtwork());
    m_model.chosenArtworkPreview = std::nullopt;
    EXPECT_EQ(m_model.artworkState(), State::loading());
}

TEST_F(EditorArtwork, OfUntouchedRowsHasNoCaptionBesideAChosenPicture)
{
    show({rowWithPicture(u"a"_s), rowWithPicture(u"b"_s)}, {picture(u"x"_s), picture(u"x"_s)});
    m_model.setSelection({rowOf(u"a"_s).url});
    ASSERT_NO_FATAL_FAILURE(choose(m_fixture.makeNoise(u"front.png"_s, 60)));
    m_model.setSelection({rowOf(u"b"_s).url});
    EXPECT_EQ(m_model.artworkState(), State::image(image()));
    EXPECT_EQ(m_model.artworkCaption(), std::nullopt);
    EXPECT_EQ(m_model.artworkForViewer(), (ViewableArtwork{image(), 40, 30, std::nullopt}));
    m_model.setSelection({rowOf(u"a"_s).url, rowOf(u"b"_s).url});
    EXPECT_EQ(m_model.artworkState(), State::warning(u"Pending artwork differs"_s));
}

TEST_F(EditorArtwork, ServesSeveralSelectionsUntilAnotherIsChosen)
{
    m_fixture.settings().setArtworkSizeBudgetKilobytes(AppSettings::smallestArtworkBudget);
    const ArtworkFingerprint large = picture(u"x"_s, smallestBudget + 1);
    show({rowWithPicture(u"a"_s), rowWithPicture(u"b"_s), rowWithPicture(u"c"_s)}, {large, large, large});
    m_model.setOptimizing(true);
    m_model.setSelection({rowOf(u"a"_s).url, rowOf(u"b"_s).url});
    ASSERT_NO_FATAL_FAILURE(choose(m_fixture.makeNoise(u"first.jpg"_s, 300)));
    const QUrl first = m_model.chosenArtwork.value()->url;
    ASSERT_TRUE(QFile::exists(first.toLocalFile()));
    m_model.setSelection({rowOf(u"c"_s).url});
    ASSERT_NO_FATAL_FAILURE(choose(m_fixture.makeNoise(u"second.jpg"_s, 300, 8)));
    EXPECT_EQ(intentOf(u"a"_s), ArtworkIntent::replace(first));
    EXPECT_EQ(intentOf(u"b"_s), ArtworkIntent::replace(first));
    EXPECT_EQ(intentOf(u"c"_s), ArtworkIntent::replace(m_model.chosenArtwork.value()->url));
    EXPECT_TRUE(test::eventually([&] { return !QFile::exists(first.toLocalFile()); }));
    EXPECT_TRUE(QFile::exists(m_fixture.path(u"first.jpg"_s)));
    m_model.setSelection({rowOf(u"a"_s).url, rowOf(u"c"_s).url});
    EXPECT_EQ(m_model.artworkState(), State::warning(u"Pending artwork differs"_s));
}

TEST_F(EditorArtwork, OfTwoChosenInARowIsTheSecond)
{
    show({rowOf(u"a"_s)});
    const QUrl large = m_fixture.makeNoise(u"large.jpg"_s, 700);
    const QUrl small = m_fixture.makeNoise(u"small.jpg"_s, 20);
    EXPECT_TRUE(m_model.acceptImage(large));
    ASSERT_NO_FATAL_FAILURE(choose(small));
    EXPECT_EQ(intentOf(u"a"_s), ArtworkIntent::replace(small));
}

TEST_F(EditorArtwork, GoesToTheRowsForWhichItWasChosen)
{
    show({rowOf(u"a"_s), rowOf(u"b"_s)});
    m_model.setSelection({rowOf(u"a"_s).url});
    const QUrl url = m_fixture.makeNoise(u"front.jpg"_s, 60);
    EXPECT_TRUE(m_model.acceptImage(url));
    m_model.setSelection({rowOf(u"b"_s).url});
    ASSERT_TRUE(test::eventually([&] { return m_model.chosenArtwork.value().has_value(); }));
    EXPECT_EQ(intentOf(u"a"_s), ArtworkIntent::replace(url));
    EXPECT_EQ(intentOf(u"b"_s), ArtworkIntent::untouched());
}

TEST_F(EditorArtwork, IsntTakenOverAfterTheWindowWasClosed)
{
    show({rowOf(u"a"_s)});
    EXPECT_TRUE(m_model.acceptImage(m_fixture.makeNoise(u"front.jpg"_s, 60)));
    QCoreApplication::processEvents();
    m_model.reset();
    show({rowOf(u"b"_s)});
    const QUrl later = m_fixture.makeNoise(u"later.jpg"_s, 20);
    ASSERT_NO_FATAL_FAILURE(choose(later));
    EXPECT_EQ(m_model.changes.value().artworkIntents.size(), 1);
    EXPECT_EQ(intentOf(u"b"_s), ArtworkIntent::replace(later));
}

TEST_F(EditorArtwork, IsRefusedByItsExtension)
{
    show({rowOf(u"a"_s)});
    EXPECT_FALSE(m_model.acceptImage(m_fixture.url(u"front.gif"_s)));
    ASSERT_TRUE(m_model.alert.value());
    EXPECT_EQ(m_model.alert.value()->title, u"Unsupported Image"_s);
    EXPECT_EQ(m_model.alert.value()->message,
              u"The artwork came back as GIF, which FLAC can't carry.\n\nTry a different JPEG or PNG."_s);
    EXPECT_EQ(m_model.changes.value(), TagChangeSet());
}

TEST_F(EditorArtwork, IsRefusedIfItIsNoPicture)
{
    show({rowOf(u"a"_s)});
    test::writeFile(m_fixture.path(u"text.png"_s), "not a picture");
    ASSERT_NO_FATAL_FAILURE(choose(m_fixture.url(u"text.png"_s)));
    ASSERT_TRUE(m_model.alert.value());
    EXPECT_EQ(m_model.alert.value()->title, u"Couldn't Read That Image"_s);
    EXPECT_EQ(m_model.alert.value()->message,
              u"\"text.png\" couldn't be read as an image.\n\nTry a different JPEG or PNG."_s);
    EXPECT_EQ(m_model.changes.value(), TagChangeSet());
    EXPECT_EQ(m_model.chosenArtwork.value(), std::nullopt);
}

TEST_F(EditorArtwork, IsChosenInAPanel)
{
    show({rowOf(u"a"_s)});
    const QUrl url = m_fixture.makeNoise(u"front.jpg"_s, 60);
    m_fixture.panels().prepareAnswer(url);
    m_model.chooseArtwork();
    ASSERT_TRUE(test::eventually([&] { return m_model.chosenArtwork.value().has_value(); }));
    EXPECT_EQ(m_fixture.panels().requests().last(), (OpenPanelRequest{u"Choose Artwork"_s,
                                                                      u"Choose"_s,
                                                                      OpenPanelRequest::Target::file,
                                                                      {u"jpg"_s, u"jpeg"_s, u"png"_s}}));
}

TEST_F(EditorArtwork, OfExactlyTheBudgetIsntOverIt)
{
    m_fixture.settings().setArtworkSizeBudgetKilobytes(AppSettings::smallestArtworkBudget);
    show({rowWithPicture(u"a"_s)}, {picture(u"x"_s, smallestBudget)});
    EXPECT_FALSE(m_model.hasArtworkOverBudget());
    m_model.setOptimizing(true);
    EXPECT_FALSE(m_model.isOptimizing());
    EXPECT_FALSE(m_model.hasPendingChanges());
    m_model.artworkFingerprints =
        QHash<QUrl, ArtworkFingerprint>{{rowOf(u"a"_s).url, picture(u"x"_s, smallestBudget + 1)}};
    EXPECT_TRUE(m_model.hasArtworkOverBudget());
    EXPECT_TRUE(m_model.isOptimizing());
    EXPECT_TRUE(m_model.hasPendingChanges());
    EXPECT_EQ(m_model.optimizeLabel(), u"Optimize cover art over 50 KB"_s);
}

TEST_F(EditorArtwork, IsOptimizedIfAllThatIsOverTheBudgetIs)
{
    const ArtworkFingerprint large = picture(u"x"_s, 10'000'000);
    show({rowWithPicture(u"a"_s), rowWithPicture(u"b"_s), rowWithPicture(u"c"_s)},
         {large, large, picture(u"y"_s)});
    m_model.setSelection({rowOf(u"a"_s).url});
    m_model.completionMessage = u"Saved 1 file."_s;
    m_model.setOptimizing(true);
    EXPECT_EQ(m_model.completionMessage.value(), std::nullopt);
    EXPECT_EQ(m_model.changes.value().optimizing, QSet<QUrl>{rowOf(u"a"_s).url});
    m_model.setSelection({rowOf(u"a"_s).url, rowOf(u"c"_s).url});
    EXPECT_TRUE(m_model.isOptimizing());
    m_model.setSelection({rowOf(u"a"_s).url, rowOf(u"b"_s).url});
    EXPECT_FALSE(m_model.isOptimizing());
    m_model.setOptimizing(true);
    EXPECT_TRUE(m_model.isOptimizing());
    m_model.setOptimizing(false);
    EXPECT_TRUE(m_model.changes.value().optimizing.isEmpty());
}

TEST_F(EditorArtwork, ThatWasChosenIsMadeAnewForTheLimit)
{
    m_fixture.settings().setArtworkSizeBudgetKilobytes(AppSettings::smallestArtworkBudget);
    show({rowWithPicture(u"a"_s)}, {picture(u"x"_s, smallestBudget + 1)});
    const QUrl url = m_fixture.makeNoise(u"front.jpg"_s, 300);
    ASSERT_NO_FATAL_FAILURE(choose(url));
    ASSERT_GT(m_model.chosenArtwork.value()->byteCount, smallestBudget);
    const std::optional<QString> caption = m_model.artworkCaption();
    m_model.setOptimizing(true);
    ASSERT_TRUE(test::eventually([&] { return m_model.chosenArtwork.value()->url != url; }));
    const PreparedCoverArt shrunk = *m_model.chosenArtwork.value();
    EXPECT_LE(shrunk.byteCount, smallestBudget);
    EXPECT_EQ(shrunk.originalURL, url);
    EXPECT_NE(m_model.artworkCaption(), caption);
    EXPECT_EQ(intentOf(u"a"_s), ArtworkIntent::replace(shrunk.url));
    m_model.setOptimizing(false);
    ASSERT_TRUE(test::eventually([&] { return m_model.chosenArtwork.value()->url == url; }));
    EXPECT_TRUE(test::eventually([&] { return !QFile::exists(shrunk.url.toLocalFile()); }));
    EXPECT_EQ(m_model.artworkCaption(), caption);
}

TEST_F(EditorArtwork, ThatCantBeMadeAnewStaysSilently)
{
    show({rowWithPicture(u"a"_s)}, {picture(u"x"_s, 10'000'000)});
    const QUrl url = m_fixture.makeNoise(u"front.jpg"_s, 60);
    ASSERT_NO_FATAL_FAILURE(choose(url));
    ASSERT_TRUE(QFile::remove(url.toLocalFile()));
    m_model.setOptimizing(true);
    // The next picture is made ready only after the one that fails.
    const QUrl next = m_fixture.makeNoise(u"next.jpg"_s, 60);
    m_model.setSelection({});
    const std::optional<PreparedCoverArt> before = m_model.chosenArtwork.value();
    m_model.setSelection({rowOf(u"a"_s).url});
    EXPECT_TRUE(m_model.acceptImage(next));
    ASSERT_TRUE(test::eventually([&] { return m_model.chosenArtwork.value()->url == next; }));
    EXPECT_EQ(before->url, url);
    EXPECT_EQ(m_model.alert.value(), std::nullopt);
}

TEST_F(EditorArtwork, IsDroppedWithItsFileWhenTheFolderChanges)
{
    m_fixture.settings().setArtworkSizeBudgetKilobytes(AppSettings::smallestArtworkBudget);
    show({rowWithPicture(u"a"_s)}, {picture(u"x"_s, smallestBudget + 1)});
    m_model.setOptimizing(true);
    ASSERT_NO_FATAL_FAILURE(choose(m_fixture.makeNoise(u"front.jpg"_s, 300)));
    const QString file = m_model.chosenArtwork.value()->url.toLocalFile();
    ASSERT_TRUE(QFile::exists(file));
    m_fixture.open();
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_EQ(m_model.chosenArtwork.value(), std::nullopt);
    EXPECT_EQ(m_model.chosenArtworkPreview.value(), std::nullopt);
    EXPECT_TRUE(QFile::exists(m_fixture.path(u"front.jpg"_s)));
}

TEST_F(EditorArtwork, IsReadAfterAFolderWasOpened)
{
    const QString cover = m_fixture.makeNoise(u"cover.jpg"_s, 64).toLocalFile();
    m_fixture.songs().makeSongWithCover(u"a.flac"_s, cover);
    m_fixture.songs().makeSongWithCover(u"b.mp3"_s, cover);
    m_fixture.open();
    EXPECT_EQ(m_model.artworkState(), State::loading());
    ASSERT_NO_FATAL_FAILURE(m_fixture.waitForArtwork());
    EXPECT_EQ(m_model.artworkState().kind, State::Kind::image);
    EXPECT_EQ(m_model.artworkState().picture.size(), QSize(64, 64));
    EXPECT_EQ(m_model.artworkFingerprints.value().size(), 2);
    EXPECT_EQ(m_model.artworkCaption(),
              QString(u"64 × 64 · "_s + test::byteCountOf(m_fixture.url(u"cover.jpg"_s))));
    EXPECT_TRUE(test::eventually([&] { return !m_model.isReadingArtwork.value(); }));
}

} // namespace tonearm
