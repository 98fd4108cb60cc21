// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Banner.h"

#include "elements/MotionStyle.h"
#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "helpers/Rendering.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QGraphicsEffect>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

// A window with a banner above something else.
struct Window : QWidget
{
    explicit Window(bool moves)
        : style(moves)
        , banner(new Banner({}, this))
        , rest(new QLabel(u"The rest"_s, this))
    {
        banner->setStyle(&style);
        banner->content()->addWidget(new QPushButton(u"Check Again"_s));
        auto *column = new QVBoxLayout(this);
        column->addWidget(banner);
        column->addWidget(rest, 1);
        resize(400, 300);
    }

    QPushButton *button() { return banner->findChild<QPushButton *>(); }

    // Lets the event loop turn until the banner is neither coming nor going; the heights it had.
    QList<int> heightsUntilSettled(int wanted)
    {
        QList<int> heights;
        const bool settled = eventually([&] {
            if (heights.isEmpty() || heights.last() != banner->height())
                heights.append(banner->height());
            return banner->height() == wanted || banner->isHidden();
        });
        return settled ? heights : QList<int>();
    }

    MotionStyle style;
    Banner *banner;
    QLabel *rest;
};

} // namespace

TEST(Banner, IsHiddenAtFirst)
{
    Window window(false);
    window.show();
    EXPECT_FALSE(window.banner->isShown());
    EXPECT_TRUE(window.banner->isHidden());
}

TEST(Banner, IsThereAtOnceWhenItsWindowOpens)
{
    Window window(true);
    window.banner->setShown(true);
    window.show();
    EXPECT_TRUE(window.banner->isVisible());
    EXPECT_EQ(window.banner->height(), window.banner->sizeHint().height());
    EXPECT_GT(window.banner->height(), 20);
}

TEST(Banner, ComesAndGoesAtOnceWhereNothingIsToMove)
{
    Window window(false);
    ASSERT_TRUE(showActive(window));
    window.banner->setShown(true);
    EXPECT_EQ(window.banner->sizeHint().height(), window.banner->heightForWidth(400));
    EXPECT_GT(window.banner->sizeHint().height(), 20);
    EXPECT_TRUE(window.button()->isVisible());
    window.banner->setShown(false);
    EXPECT_TRUE(window.banner->isHidden());
}

TEST(Banner, SlidesInFromAboveAndOutAgain)
{
    Window window(true);
    ASSERT_TRUE(showActive(window));
    window.banner->setShown(true);
    EXPECT_TRUE(window.banner->isVisible());
    EXPECT_EQ(window.banner->heightForWidth(400), 0);
    EXPECT_LT(window.button()->mapTo(window.banner, QPoint()).y(), 0);
    const int full = window.button()->sizeHint().height() + 16;

    const QList<int> coming = window.heightsUntilSettled(full);
    ASSERT_GT(coming.size(), 2);
    EXPECT_TRUE(std::is_sorted(coming.begin(), coming.end()));
    EXPECT_EQ(window.button()->mapTo(window.banner, QPoint()), QPoint(12, 8));

    window.banner->setShown(false);
    EXPECT_FALSE(window.banner->isShown());
    EXPECT_TRUE(window.banner->isVisible()) << "it takes its time to leave";
    const QList<int> going = window.heightsUntilSettled(-1);
    ASSERT_GT(going.size(), 2);
    EXPECT_TRUE(std::is_sorted(going.rbegin(), going.rend()));
    EXPECT_TRUE(window.banner->isHidden());
}

TEST(Banner, FadesOnTheWay)
{
    Window window(true);
    ASSERT_TRUE(showActive(window));
    window.banner->setShown(true);
    auto *fade = window.banner->findChild<QGraphicsEffect *>();
    ASSERT_TRUE(fade);
    EXPECT_TRUE(fade->isEnabled());
    EXPECT_EQ(fade->property("opacity"), 0.0);
    EXPECT_TRUE(eventually([&] { return fade->isEnabled() && fade->property("opacity").toDouble() > 0; }));
    EXPECT_TRUE(eventually([&] { return !fade->isEnabled(); })) << "a banner that stands is drawn plainly";
}

TEST(Banner, TurnsRoundOnItsWay)
{
    Window window(true);
    ASSERT_TRUE(showActive(window));
    window.banner->setShown(true);
    ASSERT_TRUE(eventually([&] { return window.banner->height() > 0; }));
    window.banner->setShown(false);
    EXPECT_TRUE(eventually([&] { return window.banner->isHidden(); }));
}

TEST(Banner, TakesNoClicksWhileItLeaves)
{
    Window window(true);
    window.banner->setShown(true);
    ASSERT_TRUE(showActive(window));
    const QPoint place = window.button()->mapTo(&window, window.button()->rect().center());
    EXPECT_EQ(window.childAt(place), window.button());
    window.banner->setShown(false);
    EXPECT_NE(window.childAt(place), window.button());
    window.banner->setShown(true);
    EXPECT_EQ(window.childAt(place), window.button());
}

TEST(Banner, GrowsWithItsContent)
{
    Window window(false);
    window.banner->setShown(true);
    ASSERT_TRUE(showActive(window));
    const int before = window.banner->height();
    window.banner->content()->addWidget(new QPushButton(u"More"_s));
    EXPECT_TRUE(eventually([&] { return window.banner->height() > before; }));
    EXPECT_EQ(window.banner->height(), window.banner->sizeHint().height());
}

TEST(Banner, GivesWrappedTextItsHeight)
{
    Window window(false);
    auto *text = new QLabel(u"many words that go on and on until the line is full "_s.repeated(6));
    text->setWordWrap(true);
    window.banner->content()->addWidget(text);
    window.banner->setShown(true);
    ASSERT_TRUE(showActive(window));
    EXPECT_EQ(text->height(), text->heightForWidth(text->width()));
    EXPECT_GT(text->height(), 3 * text->fontMetrics().height());
}

TEST(Banner, IsTintedInItsTone)
{
    const PaletteScope light(lightPalette());
    Banner banner({.tone = Tone::warning});
    banner.resize(100, 40);
    banner.setShown(true);
    const QColor warning = rendered(banner).pixelColor(50, 20);
    banner.setTone(Tone::success);
    const QColor success = rendered(banner).pixelColor(50, 20);
    EXPECT_GT(warning.red(), warning.blue());
    EXPECT_GT(success.green(), success.red());
}

} // namespace tonearm
