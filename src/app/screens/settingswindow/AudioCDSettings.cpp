// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/settingswindow/AudioCDSettings.h"

#include "app/screens/settingswindow/SettingSwitch.h"
#include "app/settings/AppSettings.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

SwitchWords ejecting()
{
    return {.title = u"Eject the disc when you finish with it"_s,
            .explanation =
                u"The disc stays in the drive after a rip so the results can be read over. With this on, "
                "the button that clears the inputs ejects the disc at the same time."_s};
}

SwitchWords verifying()
{
    return {.title = u"Verify each track by reading it twice"_s,
            .explanation =
                u"Each track is read from the disc a second time and the two reads compared, so a track "
                "that came off differently can be flagged rather than saved silently. It roughly doubles "
                "the time a rip takes."_s};
}

SwitchWords securing()
{
    return {.title = u"Read discs securely with cd-paranoia"_s,
            .explanation =
                u"cd-paranoia re-reads and correlates sectors, so a scratched disc is either recovered "
                "or reported rather than passed through with errors. On a clean disc it produces "
                "identical audio and takes about twice as long."_s};
}

} // namespace

AudioCDSettings::AudioCDSettings(AppSettings &settings, QWidget *parent)
    : SettingsPage(parent)
{
    addSection({});
    addRow(new SettingSwitch(
        ejecting(), [&settings] { return settings.ejectDiscAfterRipping(); },
        [&settings](bool isOn) { settings.setEjectDiscAfterRipping(isOn); }, this));
    addRow(new SettingSwitch(
        verifying(), [&settings] { return settings.verifyRipsByRereading(); },
        [&settings](bool isOn) { settings.setVerifyRipsByRereading(isOn); }, this));
    addRow(new SettingSwitch(
        securing(), [&settings] { return settings.useSecureCDRipping(); },
        [&settings](bool isOn) { settings.setUseSecureCDRipping(isOn); }, this));
}

} // namespace tonearm
