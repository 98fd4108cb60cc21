// SPDX-License-Identifier: GPL-3.0-or-later
// The window that shows the cover in its own size.
#include "app/TonearmApp.h"

#include "app/screens/elements/ArtworkWell.h"
#include "helpers/Await.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/Rendering.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

QImage picture(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

struct CoverArtWindowTest : testing::Test
{
    // A cover whose preview may be smaller than its file says.
    void setCover(const QSize &pixels, const QSize &preview)
    {
        PreparedCoverArt art;
        art.pixelWidth = pixels.width();
        art.pixelHeight = pixels.height();
        art.byteCount = 1000;
        model.coverArt = art;
        model.coverArtPreview = picture(preview);
    }

    void setCover(const QSize &pixels) { setCover(pixels, pixels); }

    void clearCover()
    {
        model.coverArtPreview = std::nullopt;
        model.coverArt = std::nullopt;
    }

    CoverArtWindow &shown()
    {
        EXPECT_TRUE(showActive(window));
        return window;
    }

    const QWidget &shownPicture() { return *area().widget(); }

    QScrollArea &area() { return *window.findChild<QScrollArea *>(); }

    ModelFixture surroundings;
    AppModel &model = surroundings.model();
    CoverArtWindow window{model};
};

struct CoverArtWindowOfApp : testing::Test
{
    // The viewers that are open.
    static QList<CoverArtWindow *> viewers()
    {
        QList<CoverArtWindow *> open;
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *viewer = qobject_cast<CoverArtWindow *>(widget); viewer && viewer->isVisible())
                open.append(viewer);
        return open;
    }

    // By the keyboard, through the well's menu.
    void askForViewer()
    {
        ASSERT_TRUE(showActive(app.mainWindow()));
        auto *well = named<ArtworkWell>(app.mainWindow(), u"Cover art drop area"_s);
        ASSERT_TRUE(well);
        well->setFocus();
        press(Qt::Key_Space);
        QWidget *menu = QApplication::activePopupWidget();
        ASSERT_TRUE(menu);
        QTest::keyClick(menu, Qt::Key_Up);
        QTest::keyClick(menu, Qt::Key_Up);
        QTest::keyClick(menu, Qt::Key_Return);
    }

    QTemporaryDir folder;
    TonearmApp app{folder.filePath(u"settings.json"_s), folder.filePath(u"windows.json"_s), std::nullopt,
                   ModelFixture::noServices()};
};

} // namespace

TEST_F(CoverArtWindowTest, SaysHowToGetACover)
{
    EXPECT_EQ(shown().windowTitle(), u"Cover Art"_s);
    EXPECT_EQ(window.size(), QSize(620, 680));
    EXPECT_TRUE(named<QLabel>(window, u"No Cover Art"_s));
    EXPECT_TRUE(named<QLabel>(
        window, u"Drag an image onto the cover art well, or right-click it to download one."_s));
}

TEST_F(CoverArtWindowTest, FitsItselfToThePictureWhenItOpens)
{
    setCover({300, 200});
    EXPECT_EQ(shown().size(), QSize(320, 264));
    EXPECT_EQ(shownPicture().size(), QSize(300, 200));
    EXPECT_FALSE(named<QLabel>(window, u"No Cover Art"_s));
    EXPECT_TRUE(named<QLabel>(window, model.coverArtCaption().value()));
}

TEST_F(CoverArtWindowTest, ShowsAllOfAPictureInItsSize)
{
    setCover({300, 200}, {150, 100});
    shown();
    const QImage image = rendered(*area().widget());
    EXPECT_EQ(image.size(), QSize(300, 200));
    for (const QPoint place : {QPoint(0, 0), QPoint(299, 0), QPoint(150, 100), QPoint(299, 199)})
        EXPECT_EQ(image.pixelColor(place), Qt::red);
}

TEST_F(CoverArtWindowTest, ShowsAPictureThatFitsWithoutScrollBars)
{
    setCover({300, 200});
    shown();
    QCoreApplication::processEvents();
    EXPECT_FALSE(area().horizontalScrollBar()->isVisible());
    EXPECT_FALSE(area().verticalScrollBar()->isVisible());
}

TEST_F(CoverArtWindowTest, FitsItselfToEachPicture)
{
    setCover({300, 200});
    const QPoint top = shown().pos();
    setCover({400, 250});
    EXPECT_EQ(window.size(), QSize(420, 314));
    EXPECT_EQ(window.pos(), top);
}

TEST_F(CoverArtWindowTest, StaysAtItsLeastSizeForASmallPicture)
{
    setCover({100, 100});
    EXPECT_EQ(shown().size(), QSize(300, 260));
    EXPECT_EQ(shownPicture().size(), QSize(100, 100));
}

TEST_F(CoverArtWindowTest, StopsAtNineTenthsOfTheScreenForALargePicture)
{
    setCover({4000, 4000}, {2000, 2000});
    const QRect free = window.screen()->availableGeometry();
    EXPECT_EQ(shown().size(), free.size() * 0.9);
    EXPECT_TRUE(free.contains(window.geometry()));
    EXPECT_EQ(shownPicture().size(), QSize(4000, 4000));
    QCoreApplication::processEvents();
    EXPECT_TRUE(area().horizontalScrollBar()->isVisible());
    EXPECT_TRUE(area().verticalScrollBar()->isVisible());
}

TEST_F(CoverArtWindowTest, ShowsAPictureTheRightWayUpThatLiesOnItsSideInItsFile)
{
    setCover({400, 300}, {300, 400});
    shown();
    EXPECT_EQ(shownPicture().size(), QSize(300, 400));
}

TEST_F(CoverArtWindowTest, ShowsAPictureOfUnknownSizeInOneOfItsOwn)
{
    setCover({0, 0}, {50, 50});
    shown();
    EXPECT_EQ(shownPicture().size(), QSize(600, 600));
    EXPECT_EQ(window.size(), QSize(620, 664));
}

TEST_F(CoverArtWindowTest, FollowsTheCover)
{
    setCover({300, 200});
    shown();
    clearCover();
    EXPECT_TRUE(named<QLabel>(window, u"No Cover Art"_s));
    setCover({310, 210});
    EXPECT_FALSE(named<QLabel>(window, u"No Cover Art"_s));
    EXPECT_EQ(window.size(), QSize(330, 274));
}

TEST_F(CoverArtWindowTest, IsClosedByKeys)
{
    shown();
    press(Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    shown();
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(CoverArtWindowTest, NamesWhatTakesTheKeyboard)
{
    setCover({4000, 4000}, {400, 400});
    shown();
    QStringList names;
    for (QWidget *widget : window.findChildren<QWidget *>())
        if (widget->isVisible() && widget->focusPolicy() != Qt::NoFocus && !widget->focusProxy())
            names.append(accessibleNameOf(*widget));
    EXPECT_FALSE(names.isEmpty());
    EXPECT_FALSE(names.contains(QString()));
}

TEST_F(CoverArtWindowOfApp, OpensOnceAndComesToTheFront)
{
    app.model().coverArt = PreparedCoverArt();
    app.model().coverArtPreview = picture({40, 40});
    EXPECT_TRUE(viewers().isEmpty());
    ASSERT_NO_FATAL_FAILURE(askForViewer());
    ASSERT_EQ(viewers().size(), 1);
    CoverArtWindow *viewer = viewers().first();
    EXPECT_TRUE(QTest::qWaitForWindowActive(viewer));
    ASSERT_NO_FATAL_FAILURE(askForViewer());
    EXPECT_EQ(viewers(), QList<CoverArtWindow *>{viewer});
    EXPECT_TRUE(QTest::qWaitForWindowActive(viewer));
}

TEST_F(CoverArtWindowOfApp, OpensAgainAfterItWasClosed)
{
    app.model().coverArt = PreparedCoverArt();
    app.model().coverArtPreview = picture({40, 40});
    ASSERT_NO_FATAL_FAILURE(askForViewer());
    ASSERT_EQ(viewers().size(), 1);
    viewers().first()->close();
    EXPECT_TRUE(viewers().isEmpty());
    ASSERT_NO_FATAL_FAILURE(askForViewer());
    EXPECT_EQ(viewers().size(), 1);
}

} // namespace tonearm
