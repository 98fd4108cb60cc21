// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/settingswindow/SettingsPage.h"

namespace tonearm {

class AppSettings;
class Panels;

/// Where files go.
class FileOutputSettings : public SettingsPage
{
    Q_OBJECT

public:
    FileOutputSettings(AppSettings &settings, Panels &panels, QWidget *parent = nullptr);
};

} // namespace tonearm
