// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/AppServices.h"
#include "app/AppWindows.h"
#include "app/settings/AppSettings.h"
#include "app/settings/SettingsStore.h"
#include "metadata/ServiceAddresses.h"
#include "platform/MountMonitor.h"
#include "platform/SessionDesktop.h"
#include "support/TaskScope.h"
#include "tageditor/ArtworkViewer.h"
#include "tageditor/MetadataEditorModel.h"
#include "tageditor/SaveWatch.h"
#include "workflow/AppModel.h"
#include "workflow/JobWatch.h"
#include "workflow/LongWork.h"

#include <QCoroTask>

#include <QObject>
#include <QString>
#include <QUrl>

#include <optional>
#include <stop_token>

namespace tonearm {

/// The root of the application: makes the objects that live as long as the process, and the windows.
/// Here and in AppServices alone the interfaces of the logic meet their forms on this desktop.
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

    AppWindows &windows() { return m_windows; }

    MainWindow &mainWindow() { return m_windows.mainWindow(); }

    AppModel &model() { return m_model; }

    MetadataEditorModel &metadataEditor() { return m_metadataEditor; }

    ArtworkViewer &artworkViewer() { return m_artworkViewer; }

private:
    void checkTools();
    void watchDiscs();
    void watchDrives();
    QCoro::Task<> followDrives(std::stop_token stop);

    SettingsStore m_settingsStore;
    AppSettings m_settings;
    AppServices m_services;
    AppModel m_model;
    MetadataEditorModel m_metadataEditor;
    ArtworkViewer m_artworkViewer;
    AppWindows m_windows;
    SessionDesktop m_desktop;
    LongWork m_longWork;
    JobWatch m_jobWatch;
    SaveWatch m_saveWatch;
    // Absent where the mounts of the system can't be watched.
    std::optional<MountMonitor> m_mountMonitor;
    // The end of the connections to the application.
    QObject m_connections;
    bool m_isWatchingDrives = false;
    // Last, so that the tasks end while all else is still there.
    TaskScope m_tasks;
};

} // namespace tonearm
