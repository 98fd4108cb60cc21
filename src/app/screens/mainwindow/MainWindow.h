// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>

#include <functional>

namespace tonearm {

class AppModel;
class GenreCatalog;

/// The window of the encoding job. While a job runs it asks before it closes.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow(AppModel &model, const GenreCatalog &genres);

Q_SIGNALS:
    /// The user wants to see the cover in its window.
    void coverArtRequested();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void addShortcut(const QKeySequence &keys, const std::function<void()> &action);

    AppModel &m_model;
};

} // namespace tonearm
