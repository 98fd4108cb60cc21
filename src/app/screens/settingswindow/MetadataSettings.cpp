// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/settingswindow/MetadataSettings.h"

#include "app/screens/settingswindow/SettingSwitch.h"
#include "app/screens/settingswindow/SizeLimitRow.h"
#include "app/settings/AppSettings.h"

namespace tonearm {

using namespace Qt::StringLiterals;

MetadataSettings::MetadataSettings(AppSettings &settings, QWidget *parent)
    : SettingsPage(parent)
{
    addTracklists(settings);
    addArtwork(settings);
}

void MetadataSettings::addTracklists(AppSettings &settings)
{
    addSection(u"Tracklists"_s);
    addRow(new SettingSwitch(
        {.title = u"Apply a release's tracklist as soon as it's selected"_s,
         .explanation = u"Turn this off to review a release before its titles replace the chapter names."_s},
        [&settings] { return settings.autoMapOnSelect(); },
        [&settings](bool isOn) { settings.setAutoMapOnSelect(isOn); }, this));
}

void MetadataSettings::addArtwork(AppSettings &settings)
{
    addSection(u"Artwork"_s);
    addRow(new SettingSwitch(
        {.title = u"Shrink artwork that's over the size limit"_s},
        [&settings] { return settings.shrinkOversizedArtwork(); },
        [&settings](bool isOn) { settings.setShrinkOversizedArtwork(isOn); }, this));
    addRow(new SizeLimitRow(settings, this));
}

} // namespace tonearm
