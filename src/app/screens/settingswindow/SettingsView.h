// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace tonearm {

class AppSettings;
class Panels;

/// The window of the settings, in three tabs. Both references have to outlive it.
class SettingsView : public QWidget
{
    Q_OBJECT

public:
    SettingsView(AppSettings &settings, Panels &panels);

private:
    QWidget *makeTabs(AppSettings &settings, Panels &panels);
    QWidget *makeSaveFailure(AppSettings &settings);
};

} // namespace tonearm
