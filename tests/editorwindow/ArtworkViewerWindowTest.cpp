// SPDX-License-Identifier: GPL-3.0-or-later
// The window that shows artwork in its own size.
#include "app/screens/editorwindow/ArtworkViewerWindow.h"
#include "app/screens/elements/SingleWindow.h"
#include "helpers/Printing.h"
#include "helpers/Widgets.h"
#include "tageditor/ArtworkViewer.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QScreen>
#include <QScrollArea>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct ArtworkViewerWindowTest : testing::Test
{
    void view(const QSize &pixels, const QSize &preview, const std::optional<QString> &summary = {})
    {
        QImage image(preview, QImage::Format_RGB32);
        image.fill(Qt::red);
        viewer.image = std::nullopt;
        viewer.pixelWidth = pixels.width();
        viewer.pixelHeight = pixels.height();
        viewer.summary = summary;
        viewer.image = image;
    }

    ArtworkViewerWindow &shown()
    {
        EXPECT_TRUE(showActive(window));
        return window;
    }

    QSize sizeOfPicture() { return window.findChild<QScrollArea *>()->widget()->size(); }

    ArtworkViewer viewer;
    ArtworkViewerWindow window{viewer};
};

} // namespace

TEST_F(ArtworkViewerWindowTest, SaysWhatToDoWithoutAPicture)
{
    EXPECT_EQ(shown().windowTitle(), u"Artwork"_s);
    EXPECT_EQ(window.size(), QSize(620, 680));
    EXPECT_TRUE(named<QLabel>(window, u"No Artwork"_s));
    EXPECT_TRUE(named<QLabel>(
        window, u"Select files that share the same embedded artwork, or choose an image to embed."_s));
}

TEST_F(ArtworkViewerWindowTest, FitsItselfToThePicture)
{
    view({400, 300}, {400, 300}, u"400 × 300 · 12 KB"_s);
    EXPECT_EQ(shown().size(), QSize(400 + 20, 300 + 20 + 44));
    EXPECT_EQ(sizeOfPicture(), QSize(400, 300));
    EXPECT_TRUE(named<QLabel>(window, u"400 × 300 · 12 KB"_s));
    view({500, 300}, {250, 150});
    EXPECT_EQ(window.size(), QSize(500 + 20, 300 + 20 + 44));
    EXPECT_EQ(sizeOfPicture(), QSize(500, 300));
    EXPECT_FALSE(named<QLabel>(window, u"400 × 300 · 12 KB"_s));
}

TEST_F(ArtworkViewerWindowTest, StaysWithinTheScreen)
{
    view({4000, 4000}, {1000, 1000});
    EXPECT_EQ(shown().size(), window.screen()->availableGeometry().size() * 0.9);
}

TEST_F(ArtworkViewerWindowTest, HasALeastSize)
{
    view({100, 100}, {100, 100});
    EXPECT_EQ(shown().size(), QSize(300, 260));
}

TEST_F(ArtworkViewerWindowTest, ShowsAPictureUprightThatLiesInItsFile)
{
    view({400, 300}, {150, 200});
    EXPECT_EQ((shown(), sizeOfPicture()), QSize(300, 400));
}

TEST_F(ArtworkViewerWindowTest, HasASizeWhereNoneIsKnown)
{
    view({0, 0}, {150, 200});
    EXPECT_EQ((shown(), sizeOfPicture()), QSize(600, 600));
}

TEST_F(ArtworkViewerWindowTest, StandsSizesThatAreNonsense)
{
    view({1LL << 30, 1}, {150, 200});
    EXPECT_EQ(shown().size(), window.screen()->availableGeometry().size() * 0.9);
}

TEST_F(ArtworkViewerWindowTest, IsThereOnceAndFitsAgainForTheSamePicture)
{
    SingleWindow<ArtworkViewerWindow> windows;
    view({400, 300}, {400, 300});
    windows.open(viewer);
    ArtworkViewerWindow *first = windows.window();
    first->resize(700, 700);
    view({400, 300}, {400, 300});
    windows.open(viewer);
    EXPECT_EQ(windows.window(), first);
    EXPECT_EQ(first->size(), QSize(420, 364));
}

} // namespace tonearm
