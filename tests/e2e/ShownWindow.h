// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/mainwindow/MainWindow.h"
#include "helpers/ModelFixture.h"
#include "helpers/ScriptedTools.h"
#include "helpers/WindowUser.h"
#include "workflow/records/GenreCatalog.h"

#include <gtest/gtest.h>

namespace tonearm::test {

// Is made before its user.
struct MainWindowHolder
{
    explicit MainWindowHolder(AppModel &model);

    GenreCatalog m_genres;
    MainWindow m_mainWindow;
};

/// The main window over a model, shown and active.
class ShownWindow : private MainWindowHolder, public WindowUser
{
public:
    /// The model must outlive it.
    explicit ShownWindow(AppModel &model);

    MainWindow &window() { return m_mainWindow; }

    /// The size of what lies below the menus.
    QSize contentSize() const { return m_mainWindow.centralWidget()->size(); }

    /// Makes the window so large that this is the size of what lies below the menus.
    void resizeContent(const QSize &size);

    QLineEdit &titleBox(int chapter);
};

/// For tests of the window by its model's values, without tools.
struct WindowTest : testing::Test
{
    ModelFixture surroundings;
    AppModel &model = surroundings.model();
    ShownWindow window{model};
};

/// For tests of the window with tools that do as the test says.
struct ScriptedWindowTest : testing::Test
{
    explicit ScriptedWindowTest(const QList<ChapterMark> &chapters = {{0, 1, QStringLiteral("One")},
                                                                      {1, 2, QStringLiteral("Two")}});

    /// Has ffmpeg wait at each track until the test releases "go".
    void holdEncoding();

    /// Starts a job by the window's button that goes on until the test releases "go".
    void startHeldJob();

    ScriptedTools tools;
    ModelFixture surroundings{{.tools = tools.location()}};
    AppModel &model = surroundings.model();
    ShownWindow window{model};
};

/// Chapters of ten seconds each with these titles.
QList<ChapterInfo> chaptersTitled(const QStringList &titles);

} // namespace tonearm::test
