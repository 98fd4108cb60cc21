// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TonearmApp.h"

#include "app/screens/elements/AfterFirstFrame.h"
#include "app/screens/elements/AppIcon.h"
#include "app/screens/elements/WindowFront.h"
#include "platform/SystemBus.h"

#include <QDBusConnection>
#include <QGuiApplication>
#include <QPointer>

#include <functional>
#include <system_error>
#include <utility>

namespace tonearm {

namespace {

// The window may be closed by then, as when a notification is clicked late.
WorkWindow workWindow(const std::function<QWidget *()> &find)
{
    const auto isThereAndInFront = [find] {
        const QWidget *window = find();
        return window && isInFront(*window);
    };
    const auto bringIt = [find] {
        if (QWidget *window = find())
            bringToFront(*window);
    };
    return {.isInFront = isThereAndInFront, .bringToFront = bringIt};
}

} // namespace

TonearmApp::TonearmApp(const QString &settingsFile, const QString &sizesFile,
                       const std::optional<QString> &resourceFolder, const ServiceAddresses &addresses)
    : m_settingsStore(settingsFile)
    , m_settings(m_settingsStore)
    , m_services(resourceFolder, addresses)
    , m_model(m_settings, m_services.forJobs())
    , m_metadataEditor(m_settings, m_services.forTags())
    , m_windows({.settings = m_settings,
                 .model = m_model,
                 .metadataEditor = m_metadataEditor,
                 .artworkViewer = m_artworkViewer,
                 .genres = m_services.genres(),
                 .panels = m_services.panels(),
                 .resourceFolder = resourceFolder},
                sizesFile)
    , m_desktop(&QDBusConnection::sessionBus, &QDBusConnection::systemBus)
    , m_longWork(m_desktop)
    , m_jobWatch(m_model, m_longWork,
                 workWindow([window = QPointer<QWidget>(&mainWindow())] { return window.data(); }))
    , m_saveWatch(m_metadataEditor, m_longWork,
                  workWindow([this]() -> QWidget * { return m_windows.metadataEditor(); }))
{
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, &m_connections,
                     [this](Qt::ApplicationState state) {
                         if (state == Qt::ApplicationActive)
                             checkTools();
                     });
}

void TonearmApp::openMainWindow()
{
    mainWindow().show();
    // Drawn in all sizes that a desktop may want, which takes a while.
    afterFirstFrame(&mainWindow(), [] { QGuiApplication::setWindowIcon(applicationIcon()); });
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
    m_services.drives().follow(bus);
}

} // namespace tonearm
