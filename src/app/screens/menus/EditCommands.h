// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/menus/FocusedText.h"

#include <QMenu>

#include <vector>

namespace tonearm {

/// The menu "Edit": what can be done to the text box that has the focus, and the way to the settings.
class EditCommands : public QMenu
{
    Q_OBJECT

public:
    /// `window` is the one whose text boxes it is about.
    explicit EditCommands(QWidget *window);

Q_SIGNALS:
    void settingsRequested();

private:
    using Condition = bool (*)(const QLineEdit &);
    using Edit = void (*)(QLineEdit &);

    struct Entry
    {
        QAction *action;
        Condition isPossible;
    };

    void add(const QString &text, QKeySequence::StandardKey keys, Edit edit, Condition isPossible);
    void updateEntries();
    void updatePaste();

    FocusedText m_text;
    std::vector<Entry> m_entries;
    QAction *m_paste = nullptr;
};

} // namespace tonearm
