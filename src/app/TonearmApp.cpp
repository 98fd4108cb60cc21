// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TonearmApp.h"

#include "app/screens/elements/WindowFront.h"
#include "platform/MountTable.h"
#include "platform/SystemBus.h"
#include "tools/ProcessRunner.h"
#include "tools/ToolLocation.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QGuiApplication>
#include <QPointer>
#include <QStandardPaths>

#include <system_error>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView helpPage("https://tonearm.example/help");

// It lies beside this program.
QUrl volumeProgram()
{
    return QUrl::fromLocalFile(QCoreApplication::applicationDirPath() + u"/tonearm-cddafs"_s);
}

QString volumeFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + u"/tonearm"_s;
}

// A notification may be clicked when the window is gone.
WorkWindow workWindow(QWidget &window)
{
    return {.isInFront = [window = QPointer(&window)] { return window && isInFront(*window); },
            .bringToFront =
                [window = QPointer(&window)] {
                    if (window)
                        bringToFront(*window);
                }};
}

} // namespace

TonearmApp::TonearmApp(const QString &settingsFile, const QString &sizesFile,
                       const std::optional<QString> &resourceFolder, const ServiceAddresses &addresses)
    : m_settingsStore(settingsFile)
    , m_settings(m_settingsStore)
    , m_genres(resourceFolder.value_or(QString()) + u"/Genres.json"_s)
    , m_artworkFolder(std::make_shared<ArtworkFolder>(QDir::tempPath()))
    , m_onlineServices(addresses, QStringLiteral(TONEARM_VERSION))
    , m_previewService(ToolLocation(resourceFolder), QDir::tempPath())
    , m_previewPlayer(m_sounds)
    , m_discService(std::make_shared<MountTable>())
    , m_discRipper(QDir::tempPath())
    , m_secureRipper(ToolLocation(resourceFolder), QDir::tempPath())
    , m_drives(volumeProgram(), volumeFolder())
    , m_model(m_settings, services(ToolLocation(resourceFolder)))
    , m_windowSizes(sizesFile)
    , m_mainWindow(m_model, m_genres)
    , m_desktop(&QDBusConnection::sessionBus, &QDBusConnection::systemBus)
    , m_longWork(m_desktop)
    , m_jobWatch(m_model, m_longWork, workWindow(m_mainWindow))
{
    followWindow();
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, &m_connections,
                     [this](Qt::ApplicationState state) {
                         if (state == Qt::ApplicationActive)
                             checkTools();
                     });
}

void TonearmApp::followWindow()
{
    m_windowSizes.follow(m_mainWindow, u"main"_s);
    QObject::connect(&m_mainWindow, &MainWindow::coverArtRequested, &m_connections,
                     [this] { m_coverArtWindow.open(m_model); });
    QObject::connect(&m_mainWindow, &MainWindow::helpRequested, &m_connections,
                     [] { QDesktopServices::openUrl(QUrl(helpPage)); });
}

AppModel::Services TonearmApp::services(const ToolLocation &tools)
{
    return {.tools = tools,
            .processRunner = {},
            .chapterExtractor = ChapterExtractionService(tools),
            .encoder = AudioEncodingService(tools),
            .metadataSearch = m_onlineServices.metadataSearch(),
            .coverArtService = m_onlineServices.coverArt(),
            .artworkFolder = m_artworkFolder,
            .previewService = m_previewService,
            .previewPlayer = m_previewPlayer,
            .discService = m_discService,
            .discRipper = m_discRipper,
            .secureRipper = m_secureRipper,
            .discEjector = m_drives,
            .panels = m_panels,
            .fileViewer = m_fileViewer,
            .appVersion = QStringLiteral(TONEARM_VERSION)};
}

void TonearmApp::openMainWindow()
{
    m_mainWindow.show();
    checkTools();
    watchDiscs();
    watchDrives();
}

void TonearmApp::openFile(const QUrl &file)
{
    m_model.acceptDroppedFile(file);
}

void TonearmApp::checkTools()
{
    m_model.checkFFmpeg();
    m_model.checkCDParanoia();
}

void TonearmApp::watchDiscs()
{
    if (!m_mountMonitor) {
        try {
            m_mountMonitor.emplace([this] { m_model.refreshDiscs(); });
        } catch (const std::system_error &) {
            // Discs are then seen when something else has the model look.
            m_mountMonitor.reset();
        }
    }
    m_model.refreshDiscs();
}

void TonearmApp::watchDrives()
{
    if (!std::exchange(m_isWatchingDrives, true))
        m_tasks.start([this](std::stop_token stop) { return followDrives(stop); });
}

// The bus may take its time, or never answer: the window doesn't wait for it.
QCoro::Task<> TonearmApp::followDrives(std::stop_token stop)
{
    const QDBusConnection bus = co_await connectToBus(systemBusAddress(), stop);
    m_drives.follow(bus);
}

} // namespace tonearm
