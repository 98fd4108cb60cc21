// SPDX-License-Identifier: GPL-3.0-or-later
// What the program looks at when the user comes back to it.
#include "app/TonearmApp.h"
#include "helpers/Await.h"
#include "helpers/ModelFixture.h"
#include "helpers/ScriptedTools.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct ComingBackTest : testing::Test
{
    void come() { Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationActive); }

    void waitForCheck()
    {
        ASSERT_TRUE(eventually([this] { return !app.model().ffmpegCheckTask.value(); }));
    }

    QTemporaryDir folder;
    ScriptedTools tools;
    TonearmApp app{folder.filePath(u"settings.json"_s), folder.filePath(u"windows.json"_s), tools.path({}),
                   ModelFixture::noServices()};
};

} // namespace

TEST_F(ComingBackTest, FindsToolsThatCameMeanwhile)
{
    ASSERT_TRUE(QFile::rename(tools.path(u"bin/ffmpeg"_s), tools.path(u"ffmpeg"_s)));
    come();
    waitForCheck();
    ASSERT_TRUE(std::holds_alternative<FFmpegMissing>(app.model().ffmpegStatus.value()));
    ASSERT_TRUE(QFile::rename(tools.path(u"ffmpeg"_s), tools.path(u"bin/ffmpeg"_s)));
    come();
    waitForCheck();
    EXPECT_TRUE(std::holds_alternative<FFmpegInstallation>(app.model().ffmpegStatus.value()));
    EXPECT_TRUE(app.model().didJustFindFFmpeg.value());
}

TEST_F(ComingBackTest, IsAnsweredForFiveSeconds)
{
    const AppModel::Services services = AppServices(std::nullopt, ModelFixture::noServices()).forJobs();
    EXPECT_EQ(services.announcementTime, std::chrono::seconds(5));
}

} // namespace tonearm
