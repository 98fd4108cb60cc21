// SPDX-License-Identifier: GPL-3.0-or-later
// From the last byte of the slower service's reply to the painted sheet with the releases of both, and how
// much of that the main thread works, beside a bare read and parse of the same two replies.
#include "Waiting.h"
#include "app/screens/mainwindow/MainWindow.h"
#include "app/screens/releases/ReleaseList.h"
#include "helpers/ModelFixture.h"
#include "helpers/ReleasePages.h"
#include "support/ResourceFolder.h"
#include "workflow/records/GenreCatalog.h"

#include <QApplication>
#include <QJsonDocument>
#include <QMap>
#include <QNetworkAccessManager>
#include <QNetworkReply>

#include <pthread.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <ctime>
#include <vector>

using namespace tonearm;
using namespace tonearm::bench;
using namespace tonearm::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int ofEachService = 25;
constexpr int turns = 40;
constexpr int chapterCount = 12;

// In milliseconds.
struct Moment
{
    double clock = 0;
    double workOfMainThread = 0;
};

double millisecondsOf(clockid_t clock)
{
    timespec time = {};
    ::clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

// Reads the main thread's clock from any thread.
class MainThread
{
public:
    MainThread() { ::pthread_getcpuclockid(::pthread_self(), &m_clock); }

    Moment now() const { return {millisecondsOf(CLOCK_MONOTONIC), millisecondsOf(m_clock)}; }

private:
    clockid_t m_clock = {};
};

QList<ReleaseInfo> releases()
{
    QList<ReleaseInfo> result;
    for (int number = 1; number <= ofEachService; ++number) {
        ReleaseInfo release;
        release.id = QString::number(number);
        release.artist = u"The Artist"_s;
        release.title = u"The Album, Volume %1"_s.arg(number);
        release.year = u"1999"_s;
        release.trackCount = chapterCount;
        result.append(release);
    }
    return result;
}

// What a server answers to both searches, by their paths.
QMap<QByteArray, QByteArray> fetched(QNetworkAccessManager &network, const LoopbackServer &server)
{
    QMap<QByteArray, QByteArray> bodies;
    for (const char *path : {ReleasePages::musicBrainzSearch, ReleasePages::discogsSearch}) {
        QNetworkReply *reply = network.get(QNetworkRequest(server.url(QString::fromLatin1(path))));
        QObject::connect(reply, &QNetworkReply::finished, reply, [reply, path, &bodies] {
            bodies[path] = reply->readAll();
            reply->deleteLater();
        });
    }
    waitUntil([&] { return bodies.size() == 2; });
    return bodies;
}

QMap<QByteArray, QByteArray> searchReplies(QNetworkAccessManager &network)
{
    ReleasePages pages;
    pages.findAtMusicBrainz(releases());
    pages.findAtDiscogs(releases());
    return fetched(network, pages.server());
}

// Notices the first painting of the list with all releases. It is told just before that happens; by the time
// that the event loop comes back it has.
class PaintWatch : public QObject
{
public:
    PaintWatch() { qApp->installEventFilter(this); }

    bool isDue = false;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *list = qobject_cast<ReleaseList *>(watched->parent());
        isDue = isDue ||
                (event->type() == QEvent::Paint && list && list->model()->rowCount() == 2 * ofEachService);
        return false;
    }
};

// When the later of the two replies was handed to its socket, on the server's thread.
class LastReply
{
public:
    explicit LastReply(const MainThread &thread)
        : m_thread(thread)
    {
    }

    void note()
    {
        m_moment = m_thread.now();
        ++m_count;
    }

    void reset() { m_count = 0; }

    // Once both have come in.
    Moment moment() const { return m_count.load() == 2 ? m_moment : Moment(); }

private:
    const MainThread &m_thread;
    Moment m_moment;
    std::atomic<int> m_count = 0;
};

double medianOf(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

struct Costs
{
    std::vector<double> elapsed;
    std::vector<double> worked;

    void add(const Moment &from, const Moment &to)
    {
        elapsed.push_back(to.clock - from.clock);
        worked.push_back(to.workOfMainThread - from.workOfMainThread);
    }

    void print(const char *what) const
    {
        std::printf("%-28s %12.2f %12.2f %14.2f %14.2f\n", what, medianOf(elapsed),
                    *std::ranges::max_element(elapsed), medianOf(worked), *std::ranges::max_element(worked));
    }
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setStyle(u"fusion"_s);
    const MainThread mainThread;
    LastReply lastReply(mainThread);
    QNetworkAccessManager network;
    const QMap<QByteArray, QByteArray> replies = searchReplies(network);
    LoopbackServer server;
    server.answerWith([&](const LoopbackRequest &request) {
        lastReply.note();
        return LoopbackResponse::json(replies[request.path()]);
    });

    ModelFixture surroundings({.addresses = ModelFixture::servicesAt(server.origin())});
    AppModel &model = surroundings.model();
    const GenreCatalog genres(resourceFolder().value_or(QString()) + u"/Genres.json"_s);
    MainWindow window(model, genres);
    window.show();
    model.chapters = QList<ChapterInfo>(chapterCount);
    model.artist = u"The Artist"_s;

    Costs sheets;
    Costs bare;
    for (int turn = 0; turn < turns; ++turn) {
        lastReply.reset();
        PaintWatch paint;
        model.startSearch();
        waitUntil([&] { return paint.isDue; });
        sheets.add(lastReply.moment(), mainThread.now());
        model.isShowingSearchResults = false;

        lastReply.reset();
        int parsed = 0;
        for (const QByteArray &body : fetched(network, server))
            parsed += QJsonDocument::fromJson(body).isObject() ? 1 : 0;
        if (parsed != 2)
            return 1;
        bare.add(lastReply.moment(), mainThread.now());
    }
    std::printf("From the slower of two replies, with %d releases each, in milliseconds, %d turns\n\n",
                ofEachService, turns);
    std::printf("%-28s %12s %12s %14s %14s\n", "", "median", "longest", "main thread", "longest");
    sheets.print("to the painted sheet");
    bare.print("to both replies parsed, bare");
    return 0;
}
