// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>

namespace tonearm {

class AppModel;

/// The menu "File": what the window of the encoding job can do.
class FileCommands : public QMenu
{
    Q_OBJECT

public:
    explicit FileCommands(AppModel &model, QWidget *parent = nullptr);

Q_SIGNALS:
    void closeRequested();
    void quitRequested();

private:
    void addSourceEntries();
    void addJobEntries();
    void addOutputEntries();
    void addWindowEntries();

    AppModel &m_model;
};

} // namespace tonearm
