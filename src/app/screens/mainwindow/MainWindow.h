// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>

namespace tonearm {

class AppModel;
class GenreCatalog;

/// The window of the encoding job, with the program's menus. While a job runs it asks before it closes.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow(AppModel &model, const GenreCatalog &genres);

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
    void closeEvent(QCloseEvent *event) override;

private:
    void addContent(const GenreCatalog &genres);
    void addMenus();
    void closeAfterJob();

    AppModel &m_model;
};

} // namespace tonearm
