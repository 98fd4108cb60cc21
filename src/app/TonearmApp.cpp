// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TonearmApp.h"

#include "tools/ProcessRunner.h"
#include "tools/ToolLocation.h"

#include <QGuiApplication>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

AppModel::Services makeServices(const std::optional<QString> &resourceFolder, Panels &panels,
                                FileViewer &viewer)
{
    const ToolLocation tools(resourceFolder);
    const ProcessRunner runner;
    return {.tools = tools,
            .processRunner = runner,
            .chapterExtractor = ChapterExtractionService(tools, runner),
            .encoder = AudioEncodingService(tools, runner),
            .panels = panels,
            .fileViewer = viewer,
            .appVersion = QStringLiteral(TONEARM_VERSION)};
}

} // namespace

TonearmApp::TonearmApp(const QString &settingsFile, const std::optional<QString> &resourceFolder)
    : m_settingsStore(settingsFile)
    , m_settings(m_settingsStore)
    , m_genres(resourceFolder.value_or(QString()) + u"/Genres.json"_s)
    , m_model(m_settings, makeServices(resourceFolder, m_panels, m_fileViewer))
    , m_mainWindow(m_model, m_genres)
{
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, &m_connections,
                     [this](Qt::ApplicationState state) {
                         if (state == Qt::ApplicationActive)
                             checkTools();
                     });
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
