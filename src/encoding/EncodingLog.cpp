// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/EncodingLog.h"

#include "encoding/EncodingLogText.h"
#include "encoding/FileNaming.h"
#include "support/AtomicFile.h"
#include "support/FileName.h"
#include "support/Text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStringList>

#include <filesystem>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// "Some Artist - Some Album", or what of it there is.
QString albumTitle(const EncodingLog &log)
{
    QStringList parts = {trimmed(log.artist), trimmed(log.album)};
    parts.removeAll(QString());
    return parts.join(u" - "_s);
}

bool exists(const std::optional<QUrl> &folder)
{
    return folder && QFileInfo::exists(folder->toLocalFile());
}

} // namespace

QString EncodingLog::text() const
{
    return encodingLogText(*this);
}

QString EncodingLog::fileName() const
{
    const QString ending = u".log"_s;
    QString stem = QLocale::c().toString(startedAt.toLocalTime(), u"yyyy-MM-dd HH-mm-ss"_s);
    if (const std::optional<QString> name = cleanedFolderName(albumTitle(*this)))
        stem += u' ' + *name;
    return fittedFileName(stem, ending);
}

QString logDirectory(const EncodingLog &log)
{
    if (exists(log.destinationFolder))
        return log.destinationFolder->toLocalFile();
    if (log.outputFolder)
        return log.outputFolder->toLocalFile();
    if (log.destinationFolder)
        return log.destinationFolder->toLocalFile();
    return QDir::tempPath();
}

QUrl writeEncodingLog(const EncodingLog &log, const QString &directory)
{
    std::error_code failure;
    std::filesystem::create_directories(QFile::encodeName(directory).toStdString(), failure);
    if (failure)
        throw std::system_error(failure, directory.toStdString());
    const QString path = QDir(directory).filePath(log.fileName());
    writeAtomically(path, log.text().toUtf8());
    return QUrl::fromLocalFile(path);
}

} // namespace tonearm
