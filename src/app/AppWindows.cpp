// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AppWindows.h"

#include "app/screens/aboutwindows/AboutFacts.h"
#include "app/screens/elements/ClosingWindows.h"
#include "tageditor/ArtworkViewer.h"

#include <QDesktopServices>
#include <QScreen>
#include <QUrl>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

void showPage(const QUrl &page)
{
    QDesktopServices::openUrl(page);
}

} // namespace

AppWindows::AppWindows(const Contents &contents, const QString &sizesFile)
    : m_contents(contents)
    , m_sizes(sizesFile)
    , m_mainWindow(contents.model, contents.genres)
    , m_metadataEditor([this](MetadataEditorWindow &window) { prepareMetadataEditor(window); })
    , m_metadataArtwork([this](ArtworkViewerWindow &window) { emptyAtTheEnd(window); })
    , m_about([this](AboutView &window) { prepareAbout(window); })
    , m_licences([this](LicenceWindow &window) { m_sizes.follow(window, u"licences"_s); })
{
    m_sizes.follow(m_mainWindow, u"main"_s);
    if (const QScreen *screen = m_mainWindow.screen())
        m_mainWindow.keepWithin(screen->availableSize());
    // The program ends with its main window, and edits in another mustn't go unasked.
    m_mainWindow.setCloseGuard([this] { return closeOtherWindows(m_mainWindow); });
    connectMainWindow();
}

void AppWindows::connectMainWindow()
{
    const MainWindow *main = &m_mainWindow;
    QObject::connect(main, &MainWindow::coverArtRequested, &m_connections,
                     [this] { m_coverArt.open(m_contents.model); });
    QObject::connect(main, &MainWindow::editorRequested, &m_connections, [this] { openMetadataEditor(); });
    QObject::connect(main, &MainWindow::settingsRequested, &m_connections,
                     [this] { m_settings.open(m_contents.settings, m_contents.panels); });
    QObject::connect(main, &MainWindow::aboutRequested, &m_connections,
                     [this] { m_about.open(m_contents.model, VersionRecord::ofApplication(), showPage); });
    QObject::connect(main, &MainWindow::helpRequested, &m_connections,
                     [] { showPage(QUrl(facts::helpPage.toString())); });
}

void AppWindows::openMetadataEditor()
{
    m_metadataEditor.open(m_contents.metadataEditor, m_contents.genres, m_contents.artworkViewer);
}

void AppWindows::prepareMetadataEditor(MetadataEditorWindow &window)
{
    m_sizes.follow(window, u"metadata-editor"_s);
    QObject::connect(&window, &MetadataEditorWindow::artworkViewingRequested, &m_connections,
                     [this] { m_metadataArtwork.open(m_contents.artworkViewer); });
}

// A closed window keeps no picture.
void AppWindows::emptyAtTheEnd(ArtworkViewerWindow &window)
{
    QObject::connect(&window, &QObject::destroyed, &m_connections,
                     [this] { m_contents.artworkViewer.image = std::nullopt; });
}

void AppWindows::prepareAbout(AboutView &window)
{
    QObject::connect(&window, &AboutView::licencesRequested, &m_connections,
                     [this] { m_licences.open(m_contents.resourceFolder); });
}

} // namespace tonearm
