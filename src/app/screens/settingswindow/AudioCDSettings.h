// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/settingswindow/SettingsPage.h"

namespace tonearm {

class AppSettings;

/// How audio CDs are read, and what becomes of them.
class AudioCDSettings : public SettingsPage
{
    Q_OBJECT

public:
    explicit AudioCDSettings(AppSettings &settings, QWidget *parent = nullptr);
};

} // namespace tonearm
