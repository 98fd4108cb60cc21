// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/settingswindow/SettingsPage.h"

namespace tonearm {

class AppSettings;

/// What is done with the tracklist and the cover of a release.
class MetadataSettings : public SettingsPage
{
    Q_OBJECT

public:
    explicit MetadataSettings(AppSettings &settings, QWidget *parent = nullptr);

private:
    void addTracklists(AppSettings &settings);
    void addArtwork(AppSettings &settings);
};

} // namespace tonearm
