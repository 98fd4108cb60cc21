// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>

namespace tonearm {

class TonearmApp;

/// Goes through the application as a person would and keeps a picture of each window. Each step throws
/// std::runtime_error if it isn't to be done.
class ScreenshotTour
{
public:
    /// `folder` takes the pictures; each name ends in `suffix`.
    ScreenshotTour(TonearmApp &app, QString folder, QString suffix);

    /// Encodes the source, with a cover, into a folder.
    void showJob(const QString &source, const QString &cover, const QString &output);

    /// Edits the tags of what lies in a folder.
    void showTagEditor(const QString &folder);

    void showSettings();
    void showAbout();

private:
    QWidget &window(const QString &title);
    void pickFromMenu(QWidget &well, const QString &entry);
    void keep(QWidget &window, const QString &name);

    TonearmApp &m_app;
    QString m_folder;
    QString m_suffix;
};

} // namespace tonearm
