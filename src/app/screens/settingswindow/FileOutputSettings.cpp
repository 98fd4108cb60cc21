// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/settingswindow/FileOutputSettings.h"

#include "app/screens/settingswindow/DefaultFolderRow.h"
#include "app/screens/settingswindow/SettingSwitch.h"
#include "app/settings/AppSettings.h"

namespace tonearm {

using namespace Qt::StringLiterals;

FileOutputSettings::FileOutputSettings(AppSettings &settings, Panels &panels, QWidget *parent)
    : SettingsPage(parent)
{
    const QString section = u"Default Folder"_s;
    addSection(section);
    addRow(new DefaultFolderRow(section, settings, panels, this));
    addRow(new SettingSwitch(
        {.title = u"File tracks into Artist/Album folders"_s,
         .explanation =
             u"With this on, a rip of Rush — Exit Stage Left lands in Rush/Exit Stage Left beneath "
             "the folder above. Names are cleaned of characters that upset filesystems. Off, "
             "every track is written straight into the output folder."_s},
        [&settings] { return settings.organizeIntoArtistAlbumFolders(); },
        [&settings](bool isOn) { settings.setOrganizeIntoArtistAlbumFolders(isOn); }, this));
}

} // namespace tonearm
