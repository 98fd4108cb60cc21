// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenuBar>

namespace tonearm {

class AppModel;

/// The menus of the main window. What isn't the model's business it asks of whoever owns the windows.
class MenuBar : public QMenuBar
{
    Q_OBJECT

public:
    MenuBar(AppModel &model, QWidget *window);

Q_SIGNALS:
    /// Close this window.
    void closeRequested();
    /// End the program.
    void quitRequested();
    void editorRequested();
    void settingsRequested();
    void helpRequested();
    void aboutRequested();

private:
    void add(QMenu *menu);
};

} // namespace tonearm
