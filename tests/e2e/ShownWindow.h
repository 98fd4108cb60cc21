// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/mainwindow/MainWindow.h"
#include "helpers/ModelFixture.h"
#include "helpers/ScriptedTools.h"
#include "helpers/Widgets.h"
#include "workflow/records/GenreCatalog.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <stdexcept>

namespace tonearm::test {

/// The main window over a model, shown and active, and a person's ways to it. What isn't there when it
/// is asked for fails the test by an exception that says so.
class ShownWindow
{
public:
    /// The model must outlive it.
    explicit ShownWindow(AppModel &model);

    MainWindow &window() { return m_window; }

    /// Whether something of that name is to be seen, scrolled away or not.
    template <typename Type = QWidget> bool shows(const QString &name)
    {
        return !allNamed<Type>(m_window, name).isEmpty();
    }

    /// The one thing of that name.
    template <typename Type = QWidget> Type &find(const QString &name)
    {
        Type *found = named<Type>(m_window, name);
        if (!found)
            throw std::runtime_error("there is no one \"" + name.toStdString() + "\" in the window");
        return *found;
    }

    QPushButton &button(const QString &name) { return find<QPushButton>(name); }

    QLineEdit &box(const QString &name) { return find<QLineEdit>(name); }

    QLineEdit &titleBox(int chapter);

    /// Types a text in place of what is in a box.
    void fillIn(const QString &boxName, const QString &text);

    void waitFor(const QString &name);

    /// The dialogs that are open.
    QList<QMessageBox *> dialogs();

    /// The one dialog that is open, once it is active.
    QMessageBox &dialog();

    /// A button of a dialog.
    static QAbstractButton &buttonIn(const QMessageBox &dialog, const QString &text);

    /// Clicks a button of the one dialog that is open.
    void answer(const QString &buttonText);

    /// Waits until the window is the active one, without a dialog.
    void waitUntilUndisturbed();

    /// Lets the layouts come to rest.
    static void settle();

private:
    GenreCatalog m_genres;
    MainWindow m_window;
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
