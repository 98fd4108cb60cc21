// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/aboutwindows/AboutView.h"
#include "app/screens/aboutwindows/LicenceWindow.h"
#include "app/screens/editorwindow/ArtworkViewerWindow.h"
#include "app/screens/editorwindow/MetadataEditorWindow.h"
#include "app/screens/elements/SingleWindow.h"
#include "app/screens/elements/WindowSizes.h"
#include "app/screens/mainwindow/CoverArtWindow.h"
#include "app/screens/mainwindow/MainWindow.h"
#include "app/screens/settingswindow/SettingsView.h"

#include <QObject>
#include <QString>

#include <optional>

namespace tonearm {

class AppModel;
class AppSettings;
class ArtworkViewer;
class GenreCatalog;
class MetadataEditorModel;
class Panels;

/// The windows of the application, each open at most once, and the ways from one to another.
class AppWindows
{
public:
    /// What the windows show and work with; all of it has to outlive them.
    struct Contents
    {
        AppSettings &settings;
        AppModel &model;
        MetadataEditorModel &metadataEditor;
        ArtworkViewer &artworkViewer;
        const GenreCatalog &genres;
        Panels &panels;
        std::optional<QString> resourceFolder;
    };

    /// `sizesFile` is where the windows' sizes are kept from run to run.
    AppWindows(const Contents &contents, const QString &sizesFile);

    MainWindow &mainWindow() { return m_mainWindow; }

    void openMetadataEditor();

    /// Null while it is closed.
    MetadataEditorWindow *metadataEditor() { return m_metadataEditor.window(); }

private:
    void prepareMetadataEditor(MetadataEditorWindow &window);
    void emptyAtTheEnd(ArtworkViewerWindow &window);
    void prepareAbout(AboutView &window);
    void connectMainWindow();

    Contents m_contents;
    WindowSizes m_sizes;
    MainWindow m_mainWindow;
    SingleWindow<CoverArtWindow> m_coverArt;
    SingleWindow<MetadataEditorWindow> m_metadataEditor;
    SingleWindow<ArtworkViewerWindow> m_metadataArtwork;
    SingleWindow<AboutView> m_about;
    SingleWindow<LicenceWindow> m_licences;
    SingleWindow<SettingsView> m_settings;
    // The end of the connections.
    QObject m_connections;
};

} // namespace tonearm
