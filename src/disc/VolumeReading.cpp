// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/VolumeReading.h"

#include "disc/DiscError.h"
#include "disc/RipFiles.h"
#include "disc/TrackFileName.h"
#include "support/PathText.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <map>
#include <memory>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

struct TrackFile
{
    QString name;
    std::optional<QString> title;
};

std::map<qint64, TrackFile> filesByNumber(const QStringList &names)
{
    std::map<qint64, TrackFile> files;
    for (const QString &name : names) {
        if (const auto parsed = TrackFileName::parse(name))
            files[parsed->number] = {.name = name, .title = parsed->title};
    }
    return files;
}

// Tables of contents may hold any numbers.
qint64 frameCount(qint64 start, qint64 end)
{
    if (end <= start)
        return 0;
    constexpr auto maximum = static_cast<quint64>(std::numeric_limits<qint64>::max());
    return static_cast<qint64>(std::min(static_cast<quint64>(end) - static_cast<quint64>(start), maximum));
}

qint64 endOfTrack(const DiscTOC &toc, qint64 number)
{
    const auto next = toc.trackStarts.find(number + 1);
    return next == toc.trackStarts.end() ? toc.leadoutFrame : next->second;
}

// Sorted, so that the same volume always reads the same.
QStringList visibleNames(const QString &folder)
{
    QStringList names;
    for (const auto &entry : std::filesystem::directory_iterator(QFile::encodeName(folder).toStdString())) {
        const QString name = QString::fromStdString(entry.path().filename().string());
        if (!name.startsWith(u'.'))
            names.append(name);
    }
    names.sort();
    return names;
}

QByteArray contentsOf(const QString &path)
{
    constexpr qint64 atOnce = 65536;
    const std::unique_ptr<ReadableFile> file = SystemRipFiles().open(path);
    QByteArray all;
    for (QByteArray bytes = file->read(atOnce); !bytes.isEmpty(); bytes = file->read(atOnce))
        all += bytes;
    return all;
}

} // namespace

QList<DiscTrack> tracksOf(const DiscTOC &toc, const QUrl &volumeURL, const QStringList &names)
{
    const std::map<qint64, TrackFile> files = filesByNumber(names);
    QList<DiscTrack> tracks;
    for (const auto &[number, start] : toc.trackStarts) {
        const auto file = files.find(number);
        if (file == files.end())
            continue;
        tracks.append({.number = number,
                       .frameCount = frameCount(start, endOfTrack(toc, number)),
                       .title = file->second.title,
                       .audioFileURL = QUrl::fromLocalFile(plainPath(volumeURL) + u'/' + file->second.name),
                       .precedesDataSession = toc.sessionCount > 1 && number == toc.lastTrack});
    }
    return tracks;
}

std::optional<QUrl> rawDeviceFor(const QString &source)
{
    // Where a drive has a second node past the buffers of the first.
    const QString buffered = u"/dev/disk"_s;
    if (source.startsWith(buffered))
        return QUrl::fromLocalFile(u"/dev/rdisk"_s + source.sliced(buffered.size()));
    // Linux has one node for both uses; an image is read as a drive is.
    static const QRegularExpression itsOwn(u"^(/dev/sr[0-9]+|/.*\\.cue)$"_s,
                                           QRegularExpression::CaseInsensitiveOption |
                                               QRegularExpression::DotMatchesEverythingOption);
    if (itsOwn.match(source).hasMatch())
        return QUrl::fromLocalFile(source);
    return std::nullopt;
}

DiscInfo readDisc(const MountedVolume &volume)
{
    const QString folder = plainPath(volume.url);
    const QString table = folder + u"/.TOC.plist"_s;
    if (!QFileInfo::exists(table))
        throw DiscError::notAnAudioDisc(volume.url);
    const DiscTOC toc = DiscTOC::parse(contentsOf(table));
    const QList<DiscTrack> tracks = tracksOf(toc, volume.url, visibleNames(folder));
    if (tracks.isEmpty())
        throw DiscError::noAudioTracks();
    return {.volumeURL = volume.url,
            .volumeName = lastPathComponent(volume.url),
            .discID = toc.discID(),
            .tracks = tracks,
            .rawDevice = rawDeviceFor(volume.source)};
}

} // namespace tonearm
