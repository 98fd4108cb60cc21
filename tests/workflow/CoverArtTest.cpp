// SPDX-License-Identifier: GPL-3.0-or-later
// The cover of a job: from the user's file and from a service, its sizes, and its end.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Media.h"
#include "helpers/ModelFixture.h"
#include "helpers/NoisyPicture.h"
#include "helpers/Printing.h"
#include "helpers/ReleasePages.h"
#include "helpers/Sources.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

class CoverArt : public testing::Test
{
protected:
    QUrl picture(const QString &name, int side = 60, const char *format = "JPEG")
    {
        EXPECT_TRUE(noisyPicture(side).save(m_fixture.path(name), format));
        return m_fixture.url(name);
    }

    QUrl text(const QString &name)
    {
        writeFile(m_fixture.path(name), "not a picture");
        return m_fixture.url(name);
    }

    void use(const QUrl &url)
    {
        EXPECT_TRUE(m_model.useCoverArtFile(url));
        ASSERT_TRUE(eventually([&] {
            return m_model.alert.value() ||
                   (m_model.coverArt.value() && m_model.coverArt.value()->originalURL == url);
        }));
    }

    void fetch()
    {
        m_model.fetchArtwork();
        ASSERT_TRUE(eventually([this] { return !m_model.isFetchingArtwork.value(); }));
    }

    void chooseRelease()
    {
        ReleaseInfo release;
        release.id = u"a"_s;
        m_model.selectedRelease = release;
    }

    QByteArray bytesOf(const QUrl &url) { return readFile(url.toLocalFile()); }

    void expectAlert(const QString &title, const QString &message)
    {
        ASSERT_TRUE(m_model.alert.value());
        EXPECT_EQ(m_model.alert.value()->title, title);
        EXPECT_EQ(m_model.alert.value()->message, message);
        m_model.alert = std::nullopt;
    }

    ReleasePages m_pages;
    ModelFixture m_fixture{{.addresses = ModelFixture::servicesAt(m_pages.origin())}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(CoverArt, IsAbsentAtFirst)
{
    EXPECT_FALSE(m_model.coverArt.value());
    EXPECT_FALSE(m_model.coverArtCaption());
    EXPECT_FALSE(m_model.coverArtWarning());
    EXPECT_FALSE(m_model.currentMetadata().coverArtURL);
    EXPECT_FALSE(m_model.canFetchArtwork());
    EXPECT_EQ(m_model.fetchArtworkTitle(), u"Download Artwork"_s);
}

TEST_F(CoverArt, IsTheUsersOwnFileWhileThatIsSmallEnough)
{
    const QUrl url = picture(u"front.jpg"_s);
    use(url);
    EXPECT_EQ(m_model.coverArt.value()->url, url);
    EXPECT_EQ(m_model.currentMetadata().coverArtURL, url);
    EXPECT_EQ(m_model.coverArtPreview.value()->size(), QSize(60, 60));
    EXPECT_EQ(m_model.coverArtOrigin.value(), u"Dropped file"_s);
    const QString size = u"%1 KB"_s.arg(qRound(double(QFileInfo(url.toLocalFile()).size()) / 1000));
    EXPECT_EQ(m_model.coverArtCaption(), QString(u"Dropped file · 60 × 60 · "_s + size));
    EXPECT_FALSE(m_model.coverArtWarning());
    EXPECT_TRUE(m_fixture.temporaryArtwork().isEmpty());
}

TEST_F(CoverArt, IsRefusedByItsExtension)
{
    const QUrl url = picture(u"front.JPEG.gif"_s);
    EXPECT_FALSE(m_model.useCoverArtFile(url));
    expectAlert(
        u"Unsupported Image"_s,
        u"\"front.JPEG.gif\" isn't a JPEG or PNG. FLAC cover art has to be one of those two formats."_s);
    EXPECT_FALSE(m_model.coverArt.value());
}

TEST_F(CoverArt, IsRefusedIfItIsNoPicture)
{
    use(picture(u"front.jpg"_s));
    const std::optional<PreparedCoverArt> before = m_model.coverArt.value();
    use(text(u"text.png"_s));
    expectAlert(u"Couldn't Read Image"_s, u"\"text.png\" couldn't be opened as an image."_s);
    EXPECT_EQ(m_model.coverArt.value(), before);
}

TEST_F(CoverArt, IsWhatItIsWhateverItsName)
{
    m_fixture.settings().setArtworkSizeBudgetKilobytes(50);
    const QUrl url = picture(u"front.JPG"_s, 300, "PNG");
    use(url);
    EXPECT_FALSE(m_model.alert.value());
    ASSERT_TRUE(m_model.coverArt.value());
    EXPECT_EQ(m_model.coverArt.value()->pixelWidth, 300) << "read as what it is";
    EXPECT_TRUE(bytesOf(m_model.coverArt.value()->url).startsWith("\xFF\xD8")) << "shrunk as what it is";
}

TEST_F(CoverArt, IsShrunkUnderTheLimit)
{
    m_fixture.settings().setArtworkSizeBudgetKilobytes(50);
    const QUrl url = picture(u"front.png"_s, 300, "PNG");
    use(url);
    const PreparedCoverArt art = *m_model.coverArt.value();
    EXPECT_NE(art.url, url);
    EXPECT_LE(art.byteCount, 50 * 1024);
    EXPECT_TRUE(m_model.coverArtCaption()->endsWith(
        u" (shrunk from %1 KB)"_s.arg(qRound(double(art.originalByteCount) / 1000))));
    EXPECT_EQ(m_fixture.temporaryArtwork().size(), 1);
    EXPECT_FALSE(m_model.coverArtWarning());

    m_model.clearCoverArt();
    m_fixture.settle();
    EXPECT_TRUE(m_fixture.temporaryArtwork().isEmpty());
    EXPECT_TRUE(QFile::exists(url.toLocalFile()));
    EXPECT_FALSE(m_model.coverArtPreview.value());
    EXPECT_FALSE(m_model.coverArtOrigin.value());
}

TEST_F(CoverArt, IsKeptWithAWarningIfItCantBeShrunkEnough)
{
    m_fixture.settings().setArtworkSizeBudgetKilobytes(50);
    use(picture(u"front.png"_s, 400, "PNG"));
    const PreparedCoverArt art = *m_model.coverArt.value();
    ASSERT_GT(art.byteCount, 50 * 1024);
    EXPECT_EQ(m_model.coverArtWarning(),
              u"Artwork is %1 KB — it couldn't be squeezed under 50 KB. Some players won't show it."_s.arg(
                  qRound(double(art.byteCount) / 1000)));
}

TEST_F(CoverArt, IsKeptAsItIsWithShrinkingOff)
{
    m_fixture.settings().setArtworkSizeBudgetKilobytes(50);
    m_fixture.settings().setShrinkOversizedArtwork(false);
    const QUrl url = picture(u"front.png"_s, 300, "PNG");
    use(url);
    EXPECT_EQ(m_model.coverArt.value()->url, url);
    EXPECT_EQ(
        m_model.coverArtWarning(),
        u"Artwork is %1 KB, over the 50 KB limit. Some players won't show it. Turn on shrinking in Settings to fix that."_s
            .arg(qRound(double(m_model.coverArt.value()->byteCount) / 1000)));
    m_fixture.settings().setArtworkSizeBudgetKilobytes(5000);
    EXPECT_FALSE(m_model.coverArtWarning());
}

TEST_F(CoverArt, IsChosenInAPanel)
{
    const QUrl url = picture(u"front.png"_s, 60, "PNG");
    m_fixture.panels().prepareAnswer(url);
    m_model.chooseCoverArt();
    ASSERT_TRUE(eventually([this] { return m_model.coverArt.value().has_value(); }));
    EXPECT_EQ(m_fixture.panels().requests().last(), (OpenPanelRequest{u"Select Cover Art"_s,
                                                                      u"Choose"_s,
                                                                      OpenPanelRequest::Target::file,
                                                                      {u"jpg"_s, u"jpeg"_s, u"png"_s}}));
}

TEST_F(CoverArt, NeedsAReleaseToBeDownloaded)
{
    m_model.fetchArtwork();
    expectAlert(u"No Release Selected"_s,
                u"No release is selected.\n\nSearch for the album and choose a release first."_s);
    EXPECT_FALSE(m_model.isFetchingArtwork.value());
}

TEST_F(CoverArt, IsDownloadedFromTheReleasesService)
{
    const QUrl original = picture(u"original.jpg"_s);
    m_pages.addCover(u"a"_s, LoopbackResponse::file("image/jpeg", original.toLocalFile()));
    chooseRelease();
    EXPECT_EQ(m_model.fetchArtworkTitle(), u"Download from MusicBrainz"_s);
    EXPECT_TRUE(m_model.canFetchArtwork());
    fetch();
    ASSERT_TRUE(m_model.coverArt.value());
    EXPECT_EQ(bytesOf(m_model.coverArt.value()->url), bytesOf(original));
    EXPECT_TRUE(m_model.coverArt.value()->url.fileName().endsWith(u"-MusicBrainz-cover.jpg"_s));
    EXPECT_EQ(m_model.coverArtOrigin.value(), u"MusicBrainz"_s);
    EXPECT_TRUE(m_model.coverArtPreview.value());
    EXPECT_EQ(m_fixture.temporaryArtwork().size(), 1);
}

TEST_F(CoverArt, IsDownloadedOnceAtATime)
{
    const QUrl original = picture(u"original.jpg"_s);
    m_pages.addCover(u"a"_s, LoopbackResponse::file("image/jpeg", original.toLocalFile()));
    chooseRelease();
    m_model.fetchArtwork();
    EXPECT_FALSE(m_model.canFetchArtwork());
    fetch();
    EXPECT_EQ(m_pages.askedPaths().size(), 1);
}

TEST_F(CoverArt, TakesThePlaceOfWhatWasDownloadedBefore)
{
    m_fixture.settings().setArtworkSizeBudgetKilobytes(50);
    const QUrl original = picture(u"original.png"_s, 300, "PNG");
    m_pages.addCover(u"a"_s, LoopbackResponse::file("image/png", original.toLocalFile()));
    chooseRelease();
    fetch();
    // What came and its smaller copy.
    EXPECT_EQ(m_fixture.temporaryArtwork().size(), 2);
    const QUrl own = picture(u"own.jpg"_s);
    use(own);
    m_fixture.settle();
    EXPECT_TRUE(m_fixture.temporaryArtwork().isEmpty());
    use(picture(u"other.jpg"_s));
    EXPECT_TRUE(QFile::exists(own.toLocalFile()));
}

TEST_F(CoverArt, StaysWhenADownloadFails)
{
    use(picture(u"own.jpg"_s));
    const std::optional<PreparedCoverArt> before = m_model.coverArt.value();
    chooseRelease();
    fetch();
    expectAlert(u"Couldn't Fetch Artwork"_s,
                u"MusicBrainz has no cover art for this release.\n\nTry a Discogs "
                u"result instead, or drag in your own image."_s);
    m_pages.addCover(u"a"_s, LoopbackResponse::bytes("image/webp", "RIFF"));
    fetch();
    expectAlert(
        u"Couldn't Fetch Artwork"_s,
        u"The artwork came back as image/webp, which FLAC can't carry.\n\nTry a different JPEG or PNG."_s);
    EXPECT_EQ(m_model.coverArt.value(), before);
}

TEST_F(CoverArt, LeavesNothingOfADownloadThatIsNoPicture)
{
    m_pages.addCover(u"a"_s, LoopbackResponse::bytes("image/jpeg", "not a picture"));
    chooseRelease();
    fetch();
    ASSERT_TRUE(m_model.alert.value());
    EXPECT_EQ(m_model.alert.value()->title, u"Couldn't Fetch Artwork"_s);
    EXPECT_TRUE(m_model.alert.value()->message.endsWith(u"-MusicBrainz-cover.jpg\" couldn't be read as an "
                                                        u"image.\n\nTry a different JPEG or PNG."_s));
    EXPECT_TRUE(m_fixture.temporaryArtwork().isEmpty());
}

TEST_F(CoverArt, IsLeftAloneIfItsSmallerCopyHasNoPlace)
{
    m_fixture.settings().setArtworkSizeBudgetKilobytes(50);
    const QTemporaryDir elsewhere;
    const QString large = elsewhere.filePath(u"large.jpg"_s);
    ASSERT_TRUE(noisyPicture(900).save(large, "JPEG"));
    ASSERT_TRUE(QDir(m_fixture.path(u"Tonearm"_s)).removeRecursively());
    ASSERT_TRUE(QDir().mkpath(m_fixture.path(u"Tonearm"_s)));
    test::writeFile(m_fixture.path(u"Tonearm/Artwork"_s), {});
    use(QUrl::fromLocalFile(large));
    ASSERT_TRUE(m_model.alert.value());
    EXPECT_EQ(m_model.alert.value()->title, u"Couldn't Use Image"_s);
    EXPECT_THAT(m_model.alert.value()->message.toStdString(), testing::HasSubstr("File exists"));
    EXPECT_FALSE(m_model.coverArt.value());
    EXPECT_TRUE(QFile::exists(large));
}

TEST_F(CoverArt, LeavesNothingOfADownloadThatIsCancelled)
{
    m_pages.addCover(u"a"_s, LoopbackResponse::silence());
    chooseRelease();
    m_model.fetchArtwork();
    ASSERT_TRUE(eventually([this] { return !m_pages.askedPaths().isEmpty(); }));
    EXPECT_TRUE(m_model.isFetchingArtwork.value());
    m_fixture.dropModel();
    EXPECT_TRUE(m_fixture.temporaryArtwork().isEmpty());
}

TEST_F(CoverArt, GoesAwayWithTheInputsAndStaysForAnotherSource)
{
    use(picture(u"own.jpg"_s));
    m_model.loadFile(m_fixture.url(u"none.mkv"_s));
    EXPECT_TRUE(m_model.coverArt.value());
    m_model.clearInputs();
    EXPECT_FALSE(m_model.coverArt.value());
}

TEST_F(CoverArt, CountsAsTheUsersWork)
{
    ChapterInfo chapter;
    chapter.originalTitle = u"One"_s;
    chapter.mappedTitle = u"Eins"_s;
    m_model.inputFileURL = m_fixture.url(u"a.mkv"_s);
    m_model.chapters = {chapter};
    use(picture(u"own.jpg"_s));
    m_model.requestFile(m_fixture.url(u"b.mkv"_s));
    ASSERT_TRUE(m_model.pendingSourceChange.value());
    EXPECT_EQ(m_model.pendingSourceChange.value()->summary, u"1 edited title and the cover art you chose"_s);
    m_model.resetToSourceTitles();
    m_model.requestFile(m_fixture.url(u"b.mkv"_s));
    EXPECT_EQ(m_model.pendingSourceChange.value()->summary, u"the cover art you chose"_s);
}

TEST_F(CoverArt, GoesIntoEveryTrackAndIsNamedInTheLog)
{
    const QUrl url = picture(u"100%d.png"_s, 60, "PNG");
    use(url);
    m_fixture.prepareJob(plainSource());
    m_fixture.runJob();
    ASSERT_EQ(m_model.encodedFiles.value().size(), 2);
    for (const QUrl &file : m_model.encodedFiles.value()) {
        const QString path = m_fixture.path(u"picture"_s);
        outputOf(u"metaflac"_s, {u"--export-picture-to="_s + path, file.toLocalFile()});
        EXPECT_EQ(readFile(path), bytesOf(url));
        const QByteArray block =
            outputOf(u"metaflac"_s, {u"--list"_s, u"--block-type=PICTURE"_s, file.toLocalFile()});
        EXPECT_TRUE(block.contains("type: 3 (Cover (front))")) << block.toStdString();
        EXPECT_TRUE(block.contains("description: Album cover")) << block.toStdString();
    }
    EXPECT_TRUE(readFile(m_model.lastLogURL.value()->toLocalFile()).contains("Dropped file — 100%d.png"));
    EXPECT_TRUE(m_fixture.temporaryArtwork().isEmpty());
}

TEST_F(CoverArt, GoesIntoATrackUnderANameWithAWildcard)
{
    use(picture(u"%?.png"_s, 60, "PNG"));
    m_fixture.prepareJob(plainSource());
    m_fixture.runJob();
    ASSERT_EQ(m_model.encodedFiles.value().size(), 2);
    const QByteArray blocks = outputOf(u"metaflac"_s, {u"--list"_s, u"--block-type=PICTURE"_s,
                                                       m_model.encodedFiles.value().first().toLocalFile()});
    EXPECT_TRUE(blocks.contains("type: 3 (Cover (front))")) << blocks.toStdString();
}

TEST_F(CoverArt, IsTheLaterOfTwoFiles)
{
    const QUrl large = picture(u"large.png"_s, 900, "PNG");
    const QUrl small = picture(u"small.png"_s, 20, "PNG");
    m_fixture.settings().setArtworkSizeBudgetKilobytes(50);
    EXPECT_TRUE(m_model.useCoverArtFile(large));
    use(small);
    m_fixture.settle();
    EXPECT_EQ(m_model.coverArt.value()->originalURL, small);
    EXPECT_TRUE(m_fixture.temporaryArtwork().isEmpty());
}

TEST_F(CoverArt, StaysClearedWhileAFileIsPrepared)
{
    EXPECT_TRUE(m_model.useCoverArtFile(picture(u"own.jpg"_s)));
    m_model.clearCoverArt();
    m_fixture.settle();
    EXPECT_FALSE(m_model.coverArt.value());
}

TEST_F(CoverArt, IsNeverSeenWithAnothersFacts)
{
    use(picture(u"own.jpg"_s, 60));
    const auto onArt =
        m_model.coverArt.onValueChanged([this] { EXPECT_FALSE(m_model.coverArtPreview.value()); });
    use(picture(u"other.jpg"_s, 30));
    m_model.clearCoverArt();
}

TEST_F(CoverArt, IsDownloadedFromTheOtherServiceToo)
{
    const QUrl original = picture(u"original.png"_s, 60, "PNG");
    m_pages.server().answer("/picture", LoopbackResponse::file("image/png", original.toLocalFile()));
    ReleaseInfo release;
    release.source = MetadataSource::discogs;
    release.artworkURLs = {m_pages.origin() + u"/picture"_s};
    m_model.selectedRelease = release;
    EXPECT_EQ(m_model.fetchArtworkTitle(), u"Download from Discogs"_s);
    fetch();
    ASSERT_TRUE(m_model.coverArt.value());
    EXPECT_TRUE(m_model.coverArt.value()->url.fileName().endsWith(u"-Discogs-cover.png"_s));
}

} // namespace tonearm
