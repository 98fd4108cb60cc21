// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/WindowTasks.h"

#include <QUrl>
#include <QWidget>

#include <optional>

namespace tonearm {

class AppSettings;
class Panels;

/// The folder that jobs write to unless another is chosen, and the buttons that set and clear it.
class DefaultFolderRow : public QWidget
{
    Q_OBJECT

public:
    DefaultFolderRow(const QString &accessibleName, AppSettings &settings, Panels &panels,
                     QWidget *parent = nullptr);

private:
    QWidget *makePath(const QString &accessibleName);
    void choose();
    QCoro::Task<> askForFolder(std::stop_token stop);

    AppSettings &m_settings;
    Panels &m_panels;
    // One panel is enough.
    bool m_isAsking = false;
    WindowTasks m_tasks;
};

} // namespace tonearm
