// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkFolder.h"

#include "support/AtomicFile.h"
#include "support/FileName.h"

#include <QFile>
#include <QFileInfo>
#include <QMutexLocker>
#include <QUuid>

#include <system_error>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QString newName(const QString &suffix)
{
    const qsizetype dot = suffix.lastIndexOf(u'.');
    const QString stem = dot < 0 ? suffix : suffix.left(dot);
    const QString extension = dot < 0 ? QString() : suffix.sliced(dot);
    return fittedFileName(QUuid::createUuid().toString(QUuid::WithoutBraces) + u'-' + stem, extension);
}

// The folder that a file really lies in, links and ".." resolved; empty if there is none.
QString folderOf(const QUrl &url)
{
    const QString path = url.toLocalFile();
    return path.isEmpty() ? QString() : QFileInfo(QFileInfo(path).path()).canonicalFilePath();
}

} // namespace

ArtworkFolder::ArtworkFolder(QString base)
    : m_folders(std::move(base))
{
}

QString ArtworkFolder::path()
{
    const QMutexLocker lock(&m_mutex);
    return m_folders.folder(TemporaryFolders::Purpose::artwork);
}

QUrl ArtworkFolder::save(QByteArrayView bytes, const QString &suffix)
{
    const QString file = path() + u'/' + newName(suffix);
    writeAtomically(file, bytes);
    return QUrl::fromLocalFile(file);
}

void ArtworkFolder::discard(const QUrl &url)
{
    try {
        const QString folder = QFileInfo(path()).canonicalFilePath();
        if (!folder.isEmpty() && folderOf(url) == folder)
            QFile::remove(url.toLocalFile());
    } catch (const std::system_error &) {
        // Without a folder there is nothing in it to delete.
    }
}

} // namespace tonearm
