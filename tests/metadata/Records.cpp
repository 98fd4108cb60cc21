// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/Records.h"

#include <QDebug>

namespace tonearm {

namespace {

QString inWords(std::optional<qint64> number)
{
    return number ? QString::number(*number) : QStringLiteral("-");
}

} // namespace

void PrintTo(const TrackInfo &track, std::ostream *out) // NOLINT(readability-identifier-naming)
{
    QString text;
    QDebug(&text).nospace() << "track " << track.position << ' ' << track.title << ' '
                            << inWords(track.durationMilliseconds) << ' ' << track.id.isNull();
    *out << text.toStdString();
}

void PrintTo(const ReleaseInfo &release, std::ostream *out) // NOLINT(readability-identifier-naming)
{
    QString text;
    QDebug(&text) << displayName(release.source) << release.id << release.artist << release.title
                  << release.year << release.label << release.catalogNumber << release.country
                  << release.packaging << release.mediaFormat << release.barcode << release.url
                  << release.artworkURLs << inWords(release.trackCount)
                  << inWords(release.matchedDiscPosition) << inWords(release.discCount);
    *out << text.toStdString();
    for (const TrackInfo &track : release.tracks) {
        *out << "\n    ";
        PrintTo(track, out);
    }
}

void PrintTo(const MetadataServiceError &error, std::ostream *out) // NOLINT(readability-identifier-naming)
{
    *out << error.description().toStdString();
}

} // namespace tonearm

namespace tonearm::test {

TrackInfo track(const QString &position, const QString &title, std::optional<qint64> milliseconds)
{
    return {.id = QUuid(), .position = position, .title = title, .durationMilliseconds = milliseconds};
}

QList<TrackInfo> plain(QList<TrackInfo> tracks)
{
    for (TrackInfo &each : tracks)
        each.id = QUuid();
    return tracks;
}

ReleaseInfo plain(ReleaseInfo release)
{
    release.tracks = plain(release.tracks);
    return release;
}

QStringList idsOf(const QList<ReleaseInfo> &releases)
{
    QStringList ids;
    for (const ReleaseInfo &release : releases)
        ids.append(release.id);
    return ids;
}

} // namespace tonearm::test
