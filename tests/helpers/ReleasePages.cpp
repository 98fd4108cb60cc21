// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/ReleasePages.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

LoopbackResponse page(const QJsonObject &object)
{
    return LoopbackResponse::json(QJsonDocument(object).toJson());
}

QJsonObject musicBrainzRelease(const ReleaseInfo &release)
{
    QJsonObject result{{u"id"_s, release.id}, {u"title"_s, release.title}, {u"date"_s, release.year}};
    if (!release.artist.isEmpty())
        result.insert(u"artist-credit"_s, QJsonArray{QJsonObject{{u"name"_s, release.artist}}});
    if (release.trackCount)
        result.insert(u"track-count"_s, *release.trackCount);
    return result;
}

QJsonObject discogsResult(const ReleaseInfo &release)
{
    return {{u"id"_s, release.id.toInt()}, {u"title"_s, release.title}, {u"year"_s, release.year}};
}

QJsonArray titled(const QStringList &titles)
{
    QJsonArray result;
    for (const QString &title : titles)
        result.append(QJsonObject{{u"title"_s, title}});
    return result;
}

} // namespace

ReleasePages::ReleasePages()
{
    findAtMusicBrainz({});
    findAtDiscogs({});
}

void ReleasePages::findAtMusicBrainz(const QList<ReleaseInfo> &releases)
{
    QJsonArray found;
    for (const ReleaseInfo &release : releases)
        found.append(musicBrainzRelease(release));
    m_server.answer(musicBrainzSearch, page({{u"releases"_s, found}}));
}

void ReleasePages::findAtDiscogs(const QList<ReleaseInfo> &releases)
{
    QJsonArray found;
    for (const ReleaseInfo &release : releases)
        found.append(discogsResult(release));
    m_server.answer(discogsSearch, page({{u"results"_s, found}}));
}

void ReleasePages::addTracks(const QString &releaseID, const QStringList &titles)
{
    m_server.answer("/ws/2/release/" + releaseID.toLatin1(),
                    page({{u"media"_s, QJsonArray{QJsonObject{{u"tracks"_s, titled(titles)}}}}}));
}

void ReleasePages::addDetails(const ReleaseInfo &release, const QStringList &titles,
                              const QString &pictureURL)
{
    QJsonObject details{{u"id"_s, release.id.toInt()},
                        {u"title"_s, release.title},
                        {u"artists_sort"_s, release.artist},
                        {u"year"_s, release.year},
                        {u"tracklist"_s, titled(titles)}};
    if (!pictureURL.isEmpty())
        details.insert(u"images"_s, QJsonArray{QJsonObject{{u"uri"_s, pictureURL}}});
    m_server.answer("/releases/" + release.id.toLatin1(), page(details));
}

void ReleasePages::addCover(const QString &releaseID, const LoopbackResponse &picture)
{
    m_server.answer("/release/" + releaseID.toLatin1() + "/front", picture);
}

QList<QByteArray> ReleasePages::askedPaths() const
{
    QList<QByteArray> paths;
    for (const LoopbackRequest &request : m_server.requests())
        paths.append(request.path());
    return paths;
}

} // namespace tonearm::test
