// SPDX-License-Identifier: GPL-3.0-or-later
// From a disc's appearance on the bus to the banner on screen, and from "Load Disc" to the request of its
// lookup. The disc is an image, so that no drive takes time.
#include "Turns.h"
#include "Waiting.h"
#include "app/TonearmApp.h"
#include "app/screens/mainwindow/DiscBanner.h"
#include "app/screens/mainwindow/DiscOffer.h"
#include "helpers/CddafsProgram.h"
#include "helpers/DiscImage.h"
#include "helpers/DrivesStandIn.h"
#include "helpers/LoopbackServer.h"
#include "helpers/PrivateBus.h"
#include "support/ResourceFolder.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <vector>

using namespace tonearm;
using namespace tonearm::bench;
using namespace tonearm::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int turns = 10;
const QString drive = u"drive"_s;

// Notices when a disc's row has been painted. It is told just before that happens; by the time that the event
// loop comes back it has.
class OfferWatch : public QObject
{
public:
    OfferWatch() { qApp->installEventFilter(this); }

    bool isPainted = false;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        isPainted = isPainted || (event->type() == QEvent::Paint &&
                                  qobject_cast<DiscOffer *>(watched->parent()) != nullptr);
        return false;
    }
};

// A server that takes down when it was asked, on its own thread.
class Lookups
{
public:
    Lookups()
    {
        m_server.answerWith([this](const LoopbackRequest &) {
            m_moment = std::chrono::steady_clock::now();
            m_wasAsked = true;
            // Whoever waits looks again.
            QMetaObject::invokeMethod(
                qApp, [] {}, Qt::QueuedConnection);
            return LoopbackResponse();
        });
    }

    ServiceAddresses addresses() const
    {
        const QString origin = m_server.origin();
        return {.musicBrainz = origin,
                .musicBrainzWebSite = origin,
                .discogs = origin,
                .discogsWebSite = origin,
                .coverArtArchive = origin};
    }

    std::chrono::steady_clock::time_point nextRequest()
    {
        waitUntil([this] { return m_wasAsked.exchange(false); });
        return m_moment;
    }

private:
    LoopbackServer m_server;
    // Handed over by the other.
    std::chrono::steady_clock::time_point m_moment;
    std::atomic<bool> m_wasAsked = false;
};

void letPass(std::chrono::milliseconds time)
{
    bool hasPassed = false;
    QTimer::singleShot(time, [&] { hasPassed = true; });
    waitUntil([&] { return hasPassed; });
}

class Road
{
public:
    explicit Road(const QString &image)
        : m_image(image)
    {
        m_app.openMainWindow();
        m_drives.appear();
        letPass(std::chrono::seconds(1));
    }

    void walk()
    {
        m_bareTimes.push_back(timeOf([this] {
            CddafsProgram program({u"--in"_s, m_folder.path(), m_image});
            if (program.waitForMount().isEmpty())
                throw std::runtime_error("the disc can't be mounted");
        }));
        OfferWatch watch;
        const auto begin = std::chrono::steady_clock::now();
        m_drives.addDrive(drive);
        m_drives.insert(drive, m_image);
        waitUntil([&] { return watch.isPainted; });
        m_bannerTimes.emplace_back(std::chrono::steady_clock::now() - begin);
        QWidget &offer = *m_app.mainWindow().findChild<DiscOffer *>();
        waitUntil([&] { return offer.visibleRegion().boundingRect() == offer.rect(); });
        m_restTimes.emplace_back(std::chrono::steady_clock::now() - begin);

        const auto click = std::chrono::steady_clock::now();
        loadButton(offer).click();
        m_lookupTimes.emplace_back(m_lookups.nextRequest() - click);
        giveBack();
    }

    void print() const
    {
        std::printf("%-44s %10.1f\n", "tonearm-cddafs alone, until it is mounted",
                    median(m_bareTimes).count());
        std::printf("%-44s %10.1f\n", "drive on the bus to the banner's first frame",
                    median(m_bannerTimes).count());
        std::printf("%-44s %10.1f\n", "drive on the bus to the banner at rest", median(m_restTimes).count());
        std::printf("%-44s %10.1f\n", "\"Load Disc\" to the request of its lookup",
                    median(m_lookupTimes).count());
    }

private:
    static QAbstractButton &loadButton(const QWidget &offer)
    {
        for (QAbstractButton *button : offer.findChildren<QAbstractButton *>())
            if (button->text() == u"Load Disc")
                return *button;
        throw std::runtime_error("there is no button");
    }

    void giveBack()
    {
        AppModel &model = m_app.model();
        waitUntil([&] { return !model.isLoadingReleases.value(); });
        model.isShowingSearchResults = false;
        model.ejectCurrentDisc();
        m_drives.removeDrive(drive);
        // The service is asked once in a second at most.
        letPass(std::chrono::milliseconds(1500));
    }

    const QString m_image;
    const QTemporaryDir m_folder;
    Lookups m_lookups;
    TonearmApp m_app{m_folder.filePath(u"settings.json"_s), m_folder.filePath(u"windows.json"_s),
                     resourceFolder(), m_lookups.addresses()};
    DrivesStandIn m_drives{QDBusConnection::connectToBus(QDBusConnection::SystemBus, u"drives"_s)};
    std::vector<Milliseconds> m_bareTimes;
    std::vector<Milliseconds> m_bannerTimes;
    std::vector<Milliseconds> m_restTimes;
    std::vector<Milliseconds> m_lookupTimes;
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir folder;
    // Before anybody looks at it.
    qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
    const QApplication application(argc, argv);
    QApplication::setStyle(u"fusion"_s);
    GTEST_FLAG_SET(throw_on_failure, true);
    const PrivateBus bus;
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", bus.address().toUtf8());
    const DiscImage image(folder.path(), {.tracks = QList<ImageTrack>(12), .title = "The Disc"});
    Road road(image.path());
    for (int turn = 0; turn < turns; ++turn)
        road.walk();
    std::printf("A disc of 12 tracks, milliseconds, median of %d turns\n\n", turns);
    road.print();
    return 0;
}
