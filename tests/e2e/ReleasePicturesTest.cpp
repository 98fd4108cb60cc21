// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the search, its sheet and the cover in their states for people to look at.
#include "e2e/ShownSheet.h"

#include "app/screens/elements/ArtworkWell.h"
#include "app/screens/mainwindow/CoverArtWindow.h"
#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "helpers/ReleasePages.h"
#include "helpers/Rendering.h"

#include <QApplication>
#include <QMenu>
#include <QPainter>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

QList<ReleaseInfo> someReleases()
{
    ReleaseInfo plain = foundRelease(u"a"_s, u"The Album"_s, 12);
    plain.year = u"1969"_s;
    plain.mediaFormat = u"CD"_s;
    plain.country = u"DE"_s;
    plain.label = u"The Label"_s;
    plain.catalogNumber = u"LAB 001"_s;
    ReleaseInfo other = plain;
    other.trackCount = 11;
    other.source = MetadataSource::discogs;
    ReleaseInfo set = plain;
    set.matchedDiscPosition = 2;
    set.discCount = 3;
    set.title = u"The Complete Recordings"_s;
    const ReleaseInfo bare = foundRelease(u"d"_s, u"Nothing More Is Known"_s);
    ReleaseInfo wide = plain;
    wide.title =
        u"The Complete Symphonies, Recorded Live in the Great Hall, With the Choir (Anniversary Edition)"_s;
    wide.label = u"The Label for Recordings of Classical Music, With a Name That Goes On and On"_s;
    ReleaseInfo hebrew = plain;
    hebrew.artist = u"להקה"_s;
    hebrew.title = u"שיר הלל"_s;
    ReleaseInfo japanese = plain;
    japanese.artist = u"楽団"_s;
    japanese.title = u"長い題名のアルバム"_s;
    return {plain, other, set, bare, wide, hebrew, japanese};
}

// Something with a light and a dark part.
QImage cover(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient gradient(QPointF(), QPointF(size.width(), size.height()));
    gradient.setColorAt(0, QColor(0xf6, 0xd3, 0x65));
    gradient.setColorAt(1, QColor(0x1d, 0x2b, 0x64));
    painter.fillRect(image.rect(), gradient);
    painter.setPen(Qt::white);
    painter.drawEllipse(image.rect().center(), size.width() / 3, size.width() / 3);
    return image;
}

struct ReleasePictures : testing::WithParamInterface<bool>, testing::Test
{
    ReleasePictures()
    {
        pages.server().answer(ReleasePages::musicBrainzSearch, LoopbackResponse::silence());
        QStringList titles;
        for (int number = 1; number <= 12; ++number)
            titles.append(u"Chapter No. %1"_s.arg(number));
        model.chapters = chaptersTitled(titles);
        model.artist = u"The Artist"_s;
        model.albumTitle = u"The Album"_s;
    }

    static void keep(QWidget &widget, const QString &name)
    {
        const double scale = widget.devicePixelRatioF();
        const QString scaled = scale > 1 ? name + u"-x%1"_s.arg(scale) : name;
        EXPECT_NE(renderToPng(widget, scaled + (GetParam() ? u"-dark"_s : u"-light"_s), scale), QString());
    }

    void keepSheet(const QString &state)
    {
        model.isShowingSearchResults = true;
        ShownSheet sheet(window);
        keep(sheet.sheet(), u"releases-"_s + state);
    }

    void keepWindow(const QString &state)
    {
        for (const QSize &size : {QSize(820, 900), QSize(940, 940)}) {
            window.resizeContent(size);
            ShownWindow::settle();
            keep(window.window(), u"window-%1-%2x%3"_s.arg(state, QString::number(size.width()),
                                                           QString::number(size.height())));
        }
    }

    void setCover(const QSize &size, qint64 bytes)
    {
        PreparedCoverArt art;
        art.url = surroundings.url(u"small.jpg"_s);
        art.originalURL = surroundings.url(u"front.png"_s);
        art.pixelWidth = size.width();
        art.pixelHeight = size.height();
        art.byteCount = bytes;
        art.originalByteCount = 12'345'678;
        model.coverArt = art;
        model.coverArtPreview = cover(size);
        model.coverArtOrigin = u"MusicBrainz"_s;
    }

    const MetadataSearchOutcome::Notice rateLimited = {
        MetadataSource::discogs,
        u"Discogs is rate-limiting requests right now. Wait a few seconds and search again."_s, false};
    const MetadataSearchOutcome::Notice refused = {
        MetadataSource::musicBrainz,
        u"MusicBrainz rejected the request as unauthorized. MusicBrainz searches need no credentials, so this "
        u"is unexpected. Try again shortly."_s,
        true};
    ReleasePages pages;
    ModelFixture surroundings{{.addresses = ModelFixture::servicesAt(pages.origin())}};
    AppModel &model = surroundings.model();
    ShownWindow window{model};
    PaletteScope palette{GetParam() ? darkPalette() : lightPalette()};
};

} // namespace

TEST_P(ReleasePictures, OfResults)
{
    model.searchResults = someReleases();
    keepSheet(u"results"_s);
    model.loadingReleaseID = u"a"_s;
    keepSheet(u"loading-a-tracklist"_s);
}

TEST_P(ReleasePictures, OfALargeFont)
{
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(before.pointSizeF() * 1.5);
    QApplication::setFont(large);
    model.searchResults = someReleases();
    model.searchNotices = {rateLimited};
    keepSheet(u"large-font"_s);
    QApplication::setFont(before);
}

TEST_P(ReleasePictures, OfTheFocusOnTheButton)
{
    model.searchResults = someReleases();
    model.isShowingSearchResults = true;
    ShownSheet sheet(window);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    keepSheet(u"focus-on-button"_s);
}

TEST_P(ReleasePictures, OfASearch)
{
    model.isLoadingReleases = true;
    keepSheet(u"loading"_s);
}

TEST_P(ReleasePictures, OfNoResults)
{
    keepSheet(u"empty"_s);
}

TEST_P(ReleasePictures, OfANotice)
{
    model.searchResults = someReleases();
    model.searchNotices = {rateLimited};
    keepSheet(u"notice"_s);
    model.searchNotices = {refused, rateLimited};
    keepSheet(u"notices"_s);
}

TEST_P(ReleasePictures, OfLongTexts)
{
    model.artist = u"Sinfonieorchester des Bayerischen Rundfunks und der Chor der Musikhochschule"_s;
    model.albumTitle = u"The Complete Symphonies, Recorded Live in the Great Hall (Anniversary Edition)"_s;
    QList<ReleaseInfo> many;
    for (int copy = 0; copy < 6; ++copy)
        many += someReleases().sliced(4);
    model.searchResults = many;
    keepSheet(u"long-texts"_s);
}

TEST_P(ReleasePictures, FromRightToLeft)
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    model.searchResults = someReleases();
    model.searchNotices = {rateLimited};
    model.loadingReleaseID = u"d"_s;
    keepSheet(u"right-to-left"_s);
    model.selectedRelease = someReleases().first();
    model.isShowingSearchResults = false;
    setCover({600, 500}, 400'000);
    keepWindow(u"right-to-left"_s);
    QApplication::setLayoutDirection(Qt::LayoutDirectionAuto);
}

TEST_P(ReleasePictures, OfTheWindowWithAReleaseAndACover)
{
    ReleaseInfo release = someReleases().first();
    release.tracks = tracksTitled({u"One"_s, u"Two"_s});
    model.searchResults = {release};
    model.selectedRelease = release;
    model.albumYear = u"69"_s;
    setCover({600, 600}, 400'000);
    keepWindow(u"release"_s);
}

TEST_P(ReleasePictures, OfTheWindowWithAllThatMayGoWrong)
{
    model.searchResults = someReleases();
    model.searchNotices = {refused, rateLimited};
    surroundings.settings().setArtworkSizeBudgetKilobytes(300);
    setCover({600, 400}, 400'000);
    keepWindow(u"notices"_s);
}

TEST_P(ReleasePictures, OfTheWindowDuringASearch)
{
    model.startSearch();
    model.isFetchingArtwork = true;
    ASSERT_TRUE(model.searchTask.value());
    keepWindow(u"searching"_s);
}

TEST_P(ReleasePictures, OfTheWell)
{
    auto &well = window.find<ArtworkWell>(u"Cover art drop area"_s);
    keep(well, u"well-empty"_s);
    model.isFetchingArtwork = true;
    keep(well, u"well-loading"_s);
    setCover({600, 400}, 400'000);
    keep(well, u"well-replacing"_s);
    model.isFetchingArtwork = false;
    dragOver(well, {surroundings.url(u"front.png"_s)});
    keep(well, u"well-targeted"_s);
    well.setContent({ArtworkWellContent::Conflicting{u"Different artwork in these files"_s}});
    keep(well, u"well-conflicting"_s);
    well.setFocus();
    press(Qt::Key_Space);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    keep(*menu, u"well-menu"_s);
    menu->close();
}

TEST_P(ReleasePictures, OfTheViewer)
{
    CoverArtWindow viewer(model);
    ASSERT_TRUE(showActive(viewer));
    keep(viewer, u"viewer-empty"_s);
    setCover({500, 400}, 400'000);
    ShownWindow::settle();
    keep(viewer, u"viewer"_s);
    setCover({100, 100}, 400'000);
    ShownWindow::settle();
    keep(viewer, u"viewer-small"_s);
    setCover({2000, 2000}, 400'000);
    ShownWindow::settle();
    keep(viewer, u"viewer-large"_s);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, ReleasePictures, testing::Bool(),
                         [](const auto &dark) { return dark.param ? "Dark" : "Light"; });

} // namespace tonearm
