// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/SingleWindow.h"
#include "app/screens/elements/WindowSizes.h"
#include "app/screens/mainwindow/CoverArtWindow.h"
#include "app/screens/mainwindow/MainWindow.h"
#include "app/settings/AppSettings.h"
#include "app/settings/SettingsStore.h"
#include "artwork/ArtworkFolder.h"
#include "disc/DiscRippingService.h"
#include "disc/OpticalDiscService.h"
#include "disc/ParanoiaRippingService.h"
#include "encoding/AudioPreviewPlayer.h"
#include "encoding/ChapterPreviewService.h"
#include "metadata/OnlineServices.h"
#include "platform/DesktopFileViewer.h"
#include "platform/DesktopPanels.h"
#include "platform/MountMonitor.h"
#include "platform/OpticalDrives.h"
#include "platform/PulseSounds.h"
#include "platform/SessionDesktop.h"
#include "support/TaskScope.h"
#include "workflow/AppModel.h"
#include "workflow/JobWatch.h"
#include "workflow/LongWork.h"
#include "workflow/records/GenreCatalog.h"

#include <QCoroTask>

#include <QObject>
#include <QString>
#include <QUrl>

#include <optional>
#include <stop_token>

namespace tonearm {

/// The root of the application: makes the objects that live as long as the process, and the windows.
/// Here alone the interfaces of the logic meet their forms on this desktop.
class TonearmApp
{
public:
    /// `settingsFile` is where the settings are kept, `sizesFile` the sizes of the windows; `resourceFolder`
    /// is absent for a program that has lost its resources, which then says so in its window. Needs a
    /// QApplication. `addresses` are those of the online services.
    TonearmApp(const QString &settingsFile, const QString &sizesFile,
               const std::optional<QString> &resourceFolder, const ServiceAddresses &addresses = {});

    /// Shows the main window and starts what belongs to its opening.
    void openMainWindow();

    /// Takes up a file named when the program was started, as if it had been dropped on the main window.
    void openFile(const QUrl &file);

    MainWindow &mainWindow() { return m_mainWindow; }

    AppModel &model() { return m_model; }

private:
    AppModel::Services services(const ToolLocation &tools);
    void followWindow();
    void checkTools();
    void watchDiscs();
    void watchDrives();
    QCoro::Task<> followDrives(std::stop_token stop);

    SettingsStore m_settingsStore;
    AppSettings m_settings;
    GenreCatalog m_genres;
    DesktopPanels m_panels;
    DesktopFileViewer m_fileViewer;
    std::shared_ptr<ArtworkFolder> m_artworkFolder;
    OnlineServices m_onlineServices;
    ChapterPreviewService m_previewService;
    PulseSounds m_sounds;
    AudioPreviewPlayer m_previewPlayer;
    OpticalDiscService m_discService;
    DiscRippingService m_discRipper;
    ParanoiaRippingService m_secureRipper;
    OpticalDrives m_drives;
    AppModel m_model;
    WindowSizes m_windowSizes;
    MainWindow m_mainWindow;
    SessionDesktop m_desktop;
    LongWork m_longWork;
    JobWatch m_jobWatch;
    SingleWindow<CoverArtWindow> m_coverArtWindow;
    // Absent where the mounts of the system can't be watched.
    std::optional<MountMonitor> m_mountMonitor;
    // The end of the connections to the application.
    QObject m_connections;
    bool m_isWatchingDrives = false;
    // Last, so that the tasks end while all else is still there.
    TaskScope m_tasks;
};

} // namespace tonearm
