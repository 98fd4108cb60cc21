// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DesktopFileViewer.h"

#include "support/Background.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDesktopServices>
#include <QFileInfo>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Whether a file manager took the request. Blocks on the bus.
bool showItems(const QList<QUrl> &locations)
{
    QStringList addresses;
    for (const QUrl &location : locations)
        addresses.append(location.toString(QUrl::FullyEncoded));
    const QString service = u"org.freedesktop.FileManager1"_s;
    QDBusMessage request =
        QDBusMessage::createMethodCall(service, u"/org/freedesktop/FileManager1"_s, service, u"ShowItems"_s);
    request << addresses << QString();
    return QDBusConnection::sessionBus().call(request).type() == QDBusMessage::ReplyMessage;
}

QUrl folderOf(const QUrl &location)
{
    const QFileInfo place(location.toLocalFile());
    return QUrl::fromLocalFile(place.isDir() ? place.filePath() : place.path());
}

} // namespace

void DesktopFileViewer::select(const QList<QUrl> &locations)
{
    if (locations.isEmpty())
        return;
    m_tasks.start([locations](std::stop_token) -> QCoro::Task<> {
        const auto showing = [locations] { return showItems(locations); };
        const bool isShown = co_await inBackground(showing);
        if (isShown)
            co_return;
        const auto search = [locations] { return folderOf(locations.first()); };
        const QUrl folder = co_await inBackground(search);
        QDesktopServices::openUrl(folder);
    });
}

} // namespace tonearm
