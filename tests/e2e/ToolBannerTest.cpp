// SPDX-License-Identifier: GPL-3.0-or-later
// The banner about the audio tools.
#include "e2e/ShownWindow.h"

#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/Spinner.h"
#include "app/screens/mainwindow/FFmpegBanner.h"
#include "helpers/Await.h"
#include "helpers/Printing.h"

#include <QFile>
#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

const QString missing = u"Tonearm's audio tools are missing"_s;
const QString found = u"Audio tools are ready"_s;

struct ToolBannerTest : ScriptedWindowTest
{
    void loseFFmpeg() { ASSERT_TRUE(QFile::rename(tools.path(u"bin/ffmpeg"_s), tools.path(u"ffmpeg"_s))); }

    void restoreFFmpeg() { ASSERT_TRUE(QFile::rename(tools.path(u"ffmpeg"_s), tools.path(u"bin/ffmpeg"_s))); }

    void check()
    {
        model.checkFFmpeg();
        waitForCheck();
    }

    void waitForCheck()
    {
        ASSERT_TRUE(eventually([this] { return !model.ffmpegCheckTask.value(); }));
    }

    FFmpegBanner &banner() { return *window.window().findChild<FFmpegBanner *>(); }
};

} // namespace

TEST_F(ToolBannerTest, StaysAwayWhereTheToolsAreThere)
{
    EXPECT_FALSE(banner().isShown());
    model.checkFFmpeg();
    EXPECT_FALSE(banner().isShown());
    waitForCheck();
    EXPECT_FALSE(banner().isShown());
}

TEST_F(ToolBannerTest, TellsThatToolsAreMissing)
{
    loseFFmpeg();
    check();
    EXPECT_TRUE(banner().isShown());
    EXPECT_TRUE(window.shows<QLabel>(missing));
    const QString text = std::get<FFmpegMissing>(model.ffmpegStatus.value()).text;
    EXPECT_TRUE(text.contains(u"ffmpeg"_s));
    EXPECT_TRUE(window.shows<QLabel>(text));
    EXPECT_TRUE(window.shows<QPushButton>(u"Check Again"_s));
    EXPECT_TRUE(window.shows<QLabel>(u"Install ffmpeg to enable encoding."_s));
}

TEST_F(ToolBannerTest, StandsAboveTheSections)
{
    loseFFmpeg();
    check();
    ASSERT_TRUE(eventually([this] { return banner().height() >= banner().sizeHint().height(); }));
    EXPECT_LT(banner().geometry().bottom(), window.find<QLabel>(u"Source File"_s).parentWidget()->y());
}

TEST_F(ToolBannerTest, ShowsAnIndicatorInTheButtonsPlaceDuringACheck)
{
    loseFFmpeg();
    check();
    Spinner &spinner = *banner().findChild<Spinner *>();
    EXPECT_FALSE(spinner.isVisible());
    tools.add(u"ffmpeg"_s, ScriptedTools::waiting("go") + "exit 1");
    click(window.button(u"Check Again"_s));
    EXPECT_TRUE(model.ffmpegCheckTask.value());
    EXPECT_FALSE(window.shows(u"Check Again"_s));
    EXPECT_TRUE(spinner.isVisible());
    tools.release(u"go"_s);
    waitForCheck();
    EXPECT_TRUE(window.shows(u"Check Again"_s));
    EXPECT_FALSE(spinner.isVisible());
}

TEST_F(ToolBannerTest, AnnouncesToolsThatAreFoundAgainAndLeaves)
{
    loseFFmpeg();
    check();
    restoreFFmpeg();
    click(window.button(u"Check Again"_s));
    waitForCheck();
    EXPECT_TRUE(window.shows<QLabel>(found));
    const auto &title = window.find<IconLabel>(found);
    EXPECT_EQ(title.iconName(), IconName::success);
    EXPECT_EQ(title.iconTone(), Tone::success);
    EXPECT_FALSE(window.shows(missing));
    EXPECT_TRUE(window.shows<QLabel>(std::get<FFmpegInstallation>(model.ffmpegStatus.value()).displayLine()));
    EXPECT_FALSE(window.shows(u"Check Again"_s));
    EXPECT_TRUE(eventually([this] { return !banner().isShown() && !banner().isVisible(); }));
}

} // namespace tonearm
