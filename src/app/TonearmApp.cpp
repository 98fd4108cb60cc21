// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TonearmApp.h"

#include "tools/ProcessRunner.h"
#include "tools/ToolLocation.h"

#include <QDir>
#include <QGuiApplication>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

AppModel::Services makeServices(const std::optional<QString> &resourceFolder, OnlineServices &online,
                                const std::shared_ptr<ArtworkFolder> &artworkFolder, Panels &panels,
                                FileViewer &viewer)
{
    const ToolLocation tools(resourceFolder);
    const ProcessRunner runner;
    return {.tools = tools,
            .processRunner = runner,
            .chapterExtractor = ChapterExtractionService(tools, runner),
            .encoder = AudioEncodingService(tools, runner),
            .metadataSearch = online.metadataSearch(),
            .coverArtService = online.coverArt(),
            .artworkFolder = artworkFolder,
            .panels = panels,
            .fileViewer = viewer,
            .appVersion = QStringLiteral(TONEARM_VERSION)};
}

} // namespace

TonearmApp::TonearmApp(const QString &settingsFile, const std::optional<QString> &resourceFolder,
                       const ServiceAddresses &addresses)
    : m_settingsStore(settingsFile)
    , m_settings(m_settingsStore)
    , m_genres(resourceFolder.value_or(QString()) + u"/Genres.json"_s)
    , m_artworkFolder(std::make_shared<ArtworkFolder>(QDir::tempPath()))
    , m_onlineServices(addresses, QStringLiteral(TONEARM_VERSION))
    , m_model(m_settings,
              makeServices(resourceFolder, m_onlineServices, m_artworkFolder, m_panels, m_fileViewer))
    , m_mainWindow(m_model, m_genres)
{
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, &m_connections,
                     [this](Qt::ApplicationState state) {
                         if (state == Qt::ApplicationActive)
                             checkTools();
                     });
    QObject::connect(&m_mainWindow, &MainWindow::coverArtRequested, &m_connections,
                     [this] { m_coverArtWindow.open(m_model); });
}

void TonearmApp::openMainWindow()
{
    m_mainWindow.show();
    checkTools();
}

void TonearmApp::checkTools()
{
    m_model.checkFFmpeg();
    m_model.checkCDParanoia();
}

} // namespace tonearm
