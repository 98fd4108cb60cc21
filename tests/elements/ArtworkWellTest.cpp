// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/ArtworkWell.h"

#include "app/screens/elements/Spinner.h"
#include "helpers/Printing.h"
#include "helpers/Rendering.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QTest>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

constexpr int side = 104;

struct ArtworkWellTest : testing::Test
{
    void SetUp() override { ASSERT_TRUE(showActive(well)); }

    static QImage filled(const QSize &size)
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        return image;
    }

    void show(const QSize &pictureSize, bool isBeingReplaced = false)
    {
        well.setContent({ArtworkWellContent::Image{filled(pictureSize), isBeingReplaced}});
    }

    // Where the picture of one colour is to be seen.
    QRect placeOfPicture()
    {
        const QImage image = rendered(well);
        QRect place;
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                if (image.pixelColor(x, y) == Qt::red)
                    place |= QRect(x, y, 1, 1);
        return place;
    }

    QString description()
    {
        return QAccessible::queryAccessibleInterface(&well)->text(QAccessible::Description);
    }

    bool isSpinning() { return well.findChild<Spinner *>()->isVisible(); }

    static QMenu *openMenu() { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); }

    QList<QUrl> dropped;
    bool takes = true;
    int openings = 0;
    ArtworkWell well{side,
                     [this](const QUrl &url) {
                         dropped.append(url);
                         return takes;
                     },
                     [this](QMenu &menu) { menu.addAction(u"Opened %1"_s.arg(++openings)); }};
    QUrl first = QUrl::fromLocalFile(u"/art/first.png"_s);
    QUrl second = QUrl::fromLocalFile(u"/art/second.png"_s);
    QUrl third = QUrl::fromLocalFile(u"/art/third.png"_s);
};

} // namespace

TEST_F(ArtworkWellTest, IsASquareWithAName)
{
    EXPECT_EQ(well.size(), QSize(side, side));
    EXPECT_EQ(accessibleNameOf(well), u"Cover art drop area"_s);
}

TEST_F(ArtworkWellTest, ConsidersOnlyTheFirstOfThreeFiles)
{
    EXPECT_TRUE(drop(well, {first, second, third}));
    EXPECT_EQ(dropped, QList<QUrl>({first}));
}

TEST_F(ArtworkWellTest, RefusesADropWithoutFiles)
{
    EXPECT_FALSE(drop(well, {}));
    EXPECT_TRUE(dropped.isEmpty());
}

TEST_F(ArtworkWellTest, LeavesTheAnswerToItsOwner)
{
    takes = false;
    EXPECT_FALSE(drop(well, {first, second}));
    EXPECT_EQ(dropped, QList<QUrl>({first}));
}

TEST_F(ArtworkWellTest, StandsOutWhileAFileHoversOverIt)
{
    const QImage resting = rendered(well);
    EXPECT_TRUE(dragOver(well, {first}));
    EXPECT_TRUE(well.isTargeted());
    EXPECT_NE(rendered(well), resting);
    dragAway(well, {first});
    EXPECT_FALSE(well.isTargeted());
    EXPECT_EQ(rendered(well), resting);
}

TEST_F(ArtworkWellTest, ShowsAPictureAsLargeAsItsInsetAllows)
{
    show({50, 50});
    EXPECT_EQ(placeOfPicture(), QRect(5, 5, 94, 94));
    show({4000, 4000});
    EXPECT_EQ(placeOfPicture(), QRect(5, 5, 94, 94));
    show({200, 100});
    EXPECT_EQ(placeOfPicture().size(), QSize(94, 47));
    show({100, 200});
    EXPECT_EQ(placeOfPicture().size(), QSize(47, 94));
    EXPECT_EQ(description(), u"Holds a picture"_s);
}

TEST_F(ArtworkWellTest, ShowsEvenTheNarrowestPicture)
{
    show({4000, 1});
    EXPECT_EQ(placeOfPicture().width(), 94);
}

TEST_F(ArtworkWellTest, ShowsANote)
{
    well.setContent({ArtworkWellContent::Empty{u"Cover art"_s}});
    EXPECT_EQ(description(), u"Cover art"_s);
    const QImage note = rendered(well);
    well.setContent({ArtworkWellContent::Conflicting{u"Cover art"_s}});
    EXPECT_EQ(description(), u"Cover art"_s);
    EXPECT_NE(rendered(well), note) << "it has another icon";
    EXPECT_FALSE(isSpinning());
}

TEST_F(ArtworkWellTest, SpinsWhileItWaits)
{
    well.setContent({ArtworkWellContent::Loading{}});
    EXPECT_TRUE(isSpinning());
    EXPECT_EQ(well.findChild<Spinner *>()->geometry().center(), QPoint(51, 51));
    EXPECT_EQ(description(), u"Fetching…"_s);
    well.setContent({ArtworkWellContent::Empty{}});
    EXPECT_FALSE(isSpinning());
}

TEST_F(ArtworkWellTest, KeepsItsPicturePaleUntilTheNextIsThere)
{
    show({50, 50});
    const QColor full = rendered(well).pixelColor(30, 30);
    show({50, 50}, true);
    EXPECT_TRUE(isSpinning());
    const QColor pale = rendered(well).pixelColor(30, 30);
    EXPECT_EQ(full, Qt::red);
    EXPECT_GT(pale.red(), pale.green());
    EXPECT_GT(pale.green(), full.green());
    EXPECT_EQ(description(), u"Fetching…"_s);
}

TEST_F(ArtworkWellTest, OpensItsMenuByARightClick)
{
    const QPoint place(10, 20);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, well.mapToGlobal(place), Qt::NoModifier);
    QApplication::sendEvent(&well, &event);
    ASSERT_TRUE(openMenu());
    EXPECT_EQ(openMenu()->actions().first()->text(), u"Opened 1"_s);
    EXPECT_EQ(openMenu()->pos(), well.mapToGlobal(place));
    openMenu()->close();
}

TEST_F(ArtworkWellTest, OpensItsMenuByKeyboard)
{
    well.setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        press(key);
        ASSERT_TRUE(openMenu());
        openMenu()->close();
    }
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint(), Qt::NoModifier);
    QApplication::sendEvent(&well, &event);
    ASSERT_TRUE(openMenu());
    EXPECT_EQ(openMenu()->pos(), well.mapToGlobal(well.rect().center()));
    openMenu()->close();
    EXPECT_EQ(openings, 4);
    press(Qt::Key_A);
    EXPECT_FALSE(openMenu());
}

TEST_F(ArtworkWellTest, LeavesNoMenuBehind)
{
    well.setFocus();
    press(Qt::Key_Space);
    QTest::keyClick(openMenu(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(well.findChildren<QMenu *>().isEmpty());
    EXPECT_TRUE(well.hasFocus());
}

TEST_F(ArtworkWellTest, IsOutOfReachWhileItIsDisabled)
{
    show({60, 60});
    const QImage before = rendered(well);
    well.setEnabled(false);
    EXPECT_NE(rendered(well), before);
    EXPECT_FALSE(drop(well, {QUrl(u"file:///a.png"_s)}));
    EXPECT_FALSE(dragOver(well, {QUrl(u"file:///a.png"_s)}));
    EXPECT_FALSE(well.isTargeted());
}

TEST_F(ArtworkWellTest, SaysWhatItWaitsFor)
{
    well.setContent({ArtworkWellContent::Loading{u"Reading…"_s}});
    EXPECT_EQ(description(), u"Reading…"_s);
    EXPECT_TRUE(isSpinning());
}

} // namespace tonearm
