// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's size from one run of the program to the next.
#include "app/TonearmApp.h"
#include "app/screens/elements/WindowSizesFile.h"
#include "helpers/ModelFixture.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>
#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct MainWindowSizeTest : testing::Test
{
    QTemporaryDir folder;
    QString path = folder.filePath(u"windows.json"_s);
    std::unique_ptr<TonearmApp> app;

    MainWindow &start()
    {
        app = std::make_unique<TonearmApp>(folder.filePath(u"settings.json"_s), path, std::nullopt,
                                           ModelFixture::noServices());
        EXPECT_TRUE(showActive(app->mainWindow()));
        return app->mainWindow();
    }
};

} // namespace

TEST_F(MainWindowSizeTest, IsKept)
{
    start().resize(1000, 1000);
    app->mainWindow().close();
    app.reset();
    EXPECT_EQ(readWindowSizes(path).value(u"main"_s).size, QSize(1000, 1000));
}

TEST_F(MainWindowSizeTest, ComesBack)
{
    const QSize least = start().minimumSizeHint();
    app.reset();
    // Not more than the screen has room for, and not less than the window needs.
    const QSize kept = least.expandedTo({850, 0});
    writeWindowSize(path, u"main"_s, {kept, false});
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    EXPECT_EQ(start().size(), kept.boundedTo(screen).expandedTo(least));
}

TEST_F(MainWindowSizeTest, ComesBackMaximised)
{
    start().showMaximized();
    app->mainWindow().close();
    app.reset();
    EXPECT_TRUE(start().isMaximized());
}

} // namespace tonearm
