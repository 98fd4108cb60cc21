// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/Fingerprint.h"

#include "support/Background.h"
#include "support/Digest.h"
#include "support/FileName.h"
#include "support/PathText.h"
#include "tageditor/AudioFileTagError.h"
#include "tageditor/FilePath.h"
#include "tageditor/RemovingOnFailure.h"

#include <QFile>
#include <QUuid>

#include <cerrno>
#include <system_error>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// ffmpeg takes a "%d" in a picture's name for the number of the picture, so no percent sign gets there.
QString extractedName(const QUrl &url)
{
    const QString name = lastPathComponent(url);
    QString stem = name.left(name.lastIndexOf(u'.'));
    stem.replace(u'%', u'_');
    return fittedFileName(QUuid::createUuid().toString(QUuid::WithoutBraces) + u'-' + stem,
                          u"-embedded.jpg"_s);
}

QStringList extractionArguments(const QString &input, const QString &output)
{
    return {u"-hide_banner"_s, u"-v"_s,    u"error"_s, u"-y"_s,   u"-i"_s, input,
            u"-map"_s,         u"0:v:0"_s, u"-c"_s,    u"copy"_s, output};
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    errno = 0;
    if (!file.open(QIODevice::ReadOnly))
        throw std::system_error(errno, std::generic_category(), path.toStdString());
    return file.readAll();
}

ArtworkFingerprint fingerprintOf(const QString &path, const AudioFileTags &tags)
{
    const QByteArray bytes = contentsOf(path);
    return {.digest = sha256Hex(bytes),
            .byteCount = bytes.size(),
            .pixelWidth = tags.artworkPixelWidth.value_or(0),
            .pixelHeight = tags.artworkPixelHeight.value_or(0),
            .extractedURL = QUrl::fromLocalFile(path)};
}

QCoro::Task<ArtworkFingerprint> extractAndRead(TagTools tools, EditableAudioFile file, QString extracted,
                                               std::stop_token stop)
{
    const QString input = textPath(file.url);
    const QStringList arguments = extractionArguments(input, extracted);
    co_await runFFmpeg(tools, arguments, stop);
    const auto reading = [extracted, tags = file.tags] { return fingerprintOf(extracted, tags); };
    co_return co_await inBackground(reading);
}

} // namespace

QCoro::Task<ArtworkFingerprint> extractedFingerprint(TagTools tools, EditableAudioFile file,
                                                     std::stop_token stop)
{
    if (!file.tags.hasAttachedPicture)
        throw AudioFileTagError::noAttachedPicture(file.url);
    const auto naming = [scratch = tools.scratch, url = file.url] {
        return QString(scratch->folder(TemporaryFolders::Purpose::artwork) + u'/' + extractedName(url));
    };
    const QString extracted = co_await inBackground(naming);
    QCoro::Task<ArtworkFingerprint> work = extractAndRead(tools, file, extracted, stop);
    co_return co_await removingOnFailure(std::move(work), extracted);
}

} // namespace tonearm
