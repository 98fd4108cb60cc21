// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>

#include <functional>
#include <utility>

namespace tonearm {

class AppModel;
class GenreCatalog;

/// The window of the encoding job, with the program's menus. While a job runs it asks before it closes.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow(AppModel &model, const GenreCatalog &genres);

    /// `mayClose` is asked when nothing of the window's own keeps it open, each time that it is to close.
    void setCloseGuard(std::function<bool()> mayClose) { m_mayClose = std::move(mayClose); }

    /// Makes the window no higher than a screen with so much room, its title bar included. Where that is too
    /// little for everything, the content scrolls. The window does so by itself when it comes to another
    /// screen.
    void keepWithin(const QSize &room);

Q_SIGNALS:
    /// The user wants to see the cover in its window.
    void coverArtRequested();
    /// And these other windows.
    void editorRequested();
    void settingsRequested();
    void aboutRequested();
    /// The user wants to read about the program.
    void helpRequested();

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void fitScreen(const QScreen *screen);
    void addContent(const GenreCatalog &genres);
    void addMenus();
    void closeAfterJob();

    AppModel &m_model;
    std::function<bool()> m_mayClose = [] { return true; };
};

} // namespace tonearm
