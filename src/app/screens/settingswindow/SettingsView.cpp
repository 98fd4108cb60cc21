// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/settingswindow/SettingsView.h"

#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/Announcement.h"
#include "app/screens/elements/Bind.h"
#include "app/screens/elements/CloseKeys.h"
#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/Icons.h"
#include "app/screens/elements/ShowIfAny.h"
#include "app/screens/elements/WindowFit.h"
#include "app/screens/settingswindow/AudioCDSettings.h"
#include "app/screens/settingswindow/FileOutputSettings.h"
#include "app/screens/settingswindow/MetadataSettings.h"
#include "app/settings/AppSettings.h"

#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int windowWidth = 540;
constexpr int padding = 12;
constexpr QSize tabIconSize(20, 20);

} // namespace

SettingsView::SettingsView(AppSettings &settings, Panels &panels)
{
    setWindowTitle(u"Settings"_s);
    setAccessibleRole(this, QAccessible::Window);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->addWidget(makeTabs(settings, panels), 1);
    column->addWidget(makeSaveFailure(settings));
    keepFitted(this, windowWidth);
    addCloseKeys(this);
}

QWidget *SettingsView::makeTabs(AppSettings &settings, Panels &panels)
{
    auto *tabs = new QTabWidget(this);
    // The pages stand on the window's own ground, against which the palette's tones are legible.
    tabs->setDocumentMode(true);
    tabs->setIconSize(tabIconSize);
    tabs->tabBar()->setAccessibleName(windowTitle());
    tabs->addTab(new FileOutputSettings(settings, panels, tabs), icon(IconName::folder), u"File Output"_s);
    tabs->addTab(new AudioCDSettings(settings, tabs), icon(IconName::disc), u"Audio CDs"_s);
    tabs->addTab(new MetadataSettings(settings, tabs), icon(IconName::metadataPage), u"Metadata"_s);
    return tabs;
}

// A change that isn't on disk is in effect, but would be gone at the next start.
QWidget *SettingsView::makeSaveFailure(AppSettings &settings)
{
    auto *note = new IconLabel(IconName::warning, Tone::warning, this);
    note->setSelectable(true);
    makeAnnouncer(note);
    bind(
        note, [&settings] { return settings.saveFailure(); },
        [](IconLabel *label, const std::optional<ErrorWords> &failure) {
            announceIfAny(label, failure ? failure->joined(u" "_s) : QString());
        });
    return note;
}

} // namespace tonearm
