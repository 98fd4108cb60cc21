// SPDX-License-Identifier: GPL-3.0-or-later
// The cover's well and what is told below it.
#include "e2e/ShownWindow.h"

#include "app/screens/elements/ArtworkWell.h"
#include "app/screens/elements/Spinner.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "helpers/ReleasePages.h"

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QTest>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct CoverArtTest : testing::Test
{
    ArtworkWell &well() { return window.find<ArtworkWell>(u"Cover art drop area"_s); }

    QUrl picture(const QString &name, const QSize &size = {60, 40})
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(surroundings.path(name)));
        return surroundings.url(name);
    }

    void dropAndWait(const QUrl &url)
    {
        EXPECT_TRUE(drop(well(), {url}));
        ASSERT_TRUE(
            eventually([&] { return model.coverArt.value() && model.coverArt.value()->originalURL == url; }));
    }

    void chooseRelease(MetadataSource source = MetadataSource::musicBrainz)
    {
        ReleaseInfo release;
        release.id = u"7"_s;
        release.source = source;
        model.selectedRelease = release;
    }

    // The well's menu, as a right click opens it.
    QMenu &menu()
    {
        const QPoint centre = well().rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, centre, well().mapToGlobal(centre), Qt::NoModifier);
        QApplication::sendEvent(&well(), &event);
        return openMenu();
    }

    static QMenu &openMenu()
    {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            throw std::runtime_error("no menu is open");
        return *menu;
    }

    // Each entry, in brackets while it can't be picked.
    QStringList entries()
    {
        QMenu &open = menu();
        QStringList texts;
        for (const QAction *action : open.actions()) {
            const QString text = action->isSeparator() ? u"-"_s : action->text();
            texts.append(action->isEnabled() ? text : QString(u'(' + text + u')'));
        }
        open.close();
        return texts;
    }

    void pick(const QString &text)
    {
        QMenu &open = menu();
        for (QAction *action : open.actions()) {
            if (action->text() != text)
                continue;
            QTest::mouseClick(&open, Qt::LeftButton, {}, open.actionGeometry(action).center());
            return;
        }
        throw std::runtime_error("the menu has no \"" + text.toStdString() + '"');
    }

    bool isSpinning() { return well().findChild<Spinner *>()->isVisible(); }

    QString description()
    {
        return QAccessible::queryAccessibleInterface(&well())->text(QAccessible::Description);
    }

    ReleasePages pages;
    ModelFixture surroundings{{.addresses = ModelFixture::servicesAt(pages.origin())}};
    AppModel &model = surroundings.model();
    ShownWindow window{model};
};

} // namespace

TEST_F(CoverArtTest, HasAWell)
{
    EXPECT_EQ(well().size(), QSize(104, 104));
    EXPECT_EQ(well().toolTip(),
              u"Drag a JPEG or PNG here, or right-click to choose, download or view the artwork"_s);
    EXPECT_EQ(description(), u"Cover art"_s);
}

TEST_F(CoverArtTest, IsDroppedOnTheWell)
{
    const QUrl url = picture(u"front.png"_s);
    dropAndWait(url);
    EXPECT_EQ(description(), u"Holds a picture"_s);
    const QString caption = model.coverArtCaption().value();
    EXPECT_TRUE(caption.startsWith(u"Dropped file · 60 × 40 · "_s));
    EXPECT_TRUE(window.shows<QLabel>(caption));
}

TEST_F(CoverArtTest, IsTheFirstOfThreeDroppedFiles)
{
    const QUrl first = picture(u"first.png"_s);
    EXPECT_TRUE(drop(well(), {first, picture(u"second.png"_s), picture(u"third.png"_s)}));
    surroundings.settle();
    ASSERT_TRUE(model.coverArt.value());
    EXPECT_EQ(model.coverArt.value()->originalURL, first);
}

TEST_F(CoverArtTest, IsNoFurtherFileInPlaceOfTheFirst)
{
    EXPECT_FALSE(drop(well(), {surroundings.url(u"notes.txt"_s), picture(u"second.png"_s)}));
    EXPECT_EQ(window.dialog().text(), u"Unsupported Image"_s);
    EXPECT_EQ(window.dialog().informativeText(),
              u"\"notes.txt\" isn't a JPEG or PNG. FLAC cover art has to be one of those two formats."_s);
    window.answer(u"OK"_s);
    surroundings.settle();
    EXPECT_FALSE(model.coverArt.value());
}

TEST_F(CoverArtTest, StaysWhenAFileIsNoPicture)
{
    dropAndWait(picture(u"front.png"_s));
    writeFile(surroundings.path(u"noise.jpg"_s), "noise");
    drop(well(), {surroundings.url(u"noise.jpg"_s)});
    EXPECT_EQ(window.dialog().text(), u"Couldn't Read Image"_s);
    EXPECT_EQ(window.dialog().informativeText(), u"\"noise.jpg\" couldn't be opened as an image."_s);
    window.answer(u"OK"_s);
    EXPECT_EQ(description(), u"Holds a picture"_s);
}

TEST_F(CoverArtTest, HasAMenuForWhatCanBeDone)
{
    EXPECT_EQ(entries(), (QStringList{u"Choose…"_s, u"(Download Artwork)"_s, u"-"_s, u"(View Artwork)"_s,
                                      u"(Remove)"_s}));
    chooseRelease();
    EXPECT_EQ(entries()[1], u"Download from MusicBrainz"_s);
    chooseRelease(MetadataSource::discogs);
    EXPECT_EQ(entries()[1], u"Download from Discogs"_s);
    model.isFetchingArtwork = true;
    EXPECT_EQ(entries()[1], u"(Download from Discogs)"_s);
    dropAndWait(picture(u"front.png"_s));
    EXPECT_EQ(entries().sliced(2), (QStringList{u"-"_s, u"View Artwork"_s, u"Remove"_s}));
    // A cover that can't be shown is still one that can be removed.
    model.coverArtPreview = std::nullopt;
    EXPECT_EQ(entries().sliced(3), (QStringList{u"(View Artwork)"_s, u"Remove"_s}));
}

TEST_F(CoverArtTest, IsChosenByTheMenu)
{
    surroundings.panels().prepareAnswer(picture(u"front.png"_s));
    pick(u"Choose…"_s);
    ASSERT_TRUE(eventually([this] { return model.coverArt.value().has_value(); }));
    EXPECT_EQ(surroundings.panels().requests().last().title, u"Select Cover Art"_s);
}

TEST_F(CoverArtTest, IsRemovedByTheMenu)
{
    dropAndWait(picture(u"front.png"_s));
    const QString caption = model.coverArtCaption().value();
    pick(u"Remove"_s);
    EXPECT_FALSE(model.coverArt.value());
    EXPECT_EQ(description(), u"Cover art"_s);
    EXPECT_FALSE(window.shows<QLabel>(caption));
}

TEST_F(CoverArtTest, IsAskedForByTheMenuToBeViewed)
{
    int requests = 0;
    QObject::connect(&window.window(), &MainWindow::coverArtRequested, &window.window(), [&] { ++requests; });
    dropAndWait(picture(u"front.png"_s));
    pick(u"View Artwork"_s);
    EXPECT_EQ(requests, 1);
}

TEST_F(CoverArtTest, IsDownloadedByTheMenu)
{
    pages.addCover(u"7"_s,
                   LoopbackResponse::file("image/png", picture(u"original.png"_s, {30, 30}).toLocalFile()));
    chooseRelease();
    pick(u"Download from MusicBrainz"_s);
    EXPECT_TRUE(isSpinning());
    EXPECT_EQ(description(), u"Fetching…"_s);
    ASSERT_TRUE(eventually([this] { return !model.isFetchingArtwork.value(); }));
    EXPECT_FALSE(isSpinning());
    EXPECT_EQ(description(), u"Holds a picture"_s);
    EXPECT_TRUE(model.coverArtCaption().value().startsWith(u"MusicBrainz · 30 × 30 · "_s));
    EXPECT_TRUE(window.shows<QLabel>(model.coverArtCaption().value()));
}

TEST_F(CoverArtTest, IsToBeSeenUntilTheNextOneHasCome)
{
    pages.server().answer("/release/7/front", LoopbackResponse::withStatus(404));
    dropAndWait(picture(u"front.png"_s));
    chooseRelease();
    pick(u"Download from MusicBrainz"_s);
    EXPECT_TRUE(isSpinning());
    EXPECT_EQ(window.dialog().text(), u"Couldn't Fetch Artwork"_s);
    window.answer(u"OK"_s);
    EXPECT_FALSE(isSpinning());
    EXPECT_EQ(description(), u"Holds a picture"_s);
}

TEST_F(CoverArtTest, IsHandledByKeyboard)
{
    surroundings.panels().prepareAnswer(picture(u"front.png"_s));
    well().setFocus();
    press(Qt::Key_Space);
    QTest::keyClick(&openMenu(), Qt::Key_Down);
    QTest::keyClick(&openMenu(), Qt::Key_Return);
    ASSERT_TRUE(eventually([this] { return model.coverArt.value().has_value(); }));
    window.waitUntilUndisturbed();
    EXPECT_TRUE(well().hasFocus());
    press(Qt::Key_Return);
    QTest::keyClick(&openMenu(), Qt::Key_Up);
    QTest::keyClick(&openMenu(), Qt::Key_Return);
    EXPECT_FALSE(model.coverArt.value());
}

TEST_F(CoverArtTest, HasAWarningWhenItIsTooLarge)
{
    PreparedCoverArt art;
    art.byteCount = 3'000'000;
    art.originalByteCount = 3'000'000;
    art.pixelWidth = 3000;
    art.pixelHeight = 3000;
    surroundings.settings().setShrinkOversizedArtwork(false);
    surroundings.settings().setArtworkSizeBudgetKilobytes(500);
    model.coverArt = art;
    const QString warning = model.coverArtWarning().value();
    EXPECT_TRUE(warning.endsWith(u"over the 500 KB limit. Some players won't show it. Turn on shrinking in "
                                 u"Settings to fix that."_s));
    EXPECT_TRUE(window.shows<QLabel>(warning));
    surroundings.settings().setArtworkSizeBudgetKilobytes(5000);
    EXPECT_FALSE(window.shows<QLabel>(warning));
}

} // namespace tonearm
