// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/RewriteTarget.h"

#include "support/FileName.h"
#include "support/PathText.h"
#include "tageditor/AudioFileTagError.h"
#include "tageditor/FilePath.h"

#include <QFile>
#include <QUuid>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds dateTolerance{1000};

// Empty if there is nothing, as at the end of a broken link.
QByteArray realPath(const QUrl &url)
{
    char *const found = ::realpath(QFile::encodeName(textPath(url)).constData(), nullptr);
    const QByteArray result(found);
    std::free(found);
    return result;
}

bool isWritable(const QString &path)
{
    return ::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK, AT_EACCESS) == 0;
}

QString folderOf(const QString &path)
{
    const qsizetype slash = path.lastIndexOf(u'/');
    return slash == 0 ? u"/"_s : path.left(slash);
}

QString temporaryPath(const QString &folder, const QString &name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    const QString stem = u'.' + QUuid::createUuid().toString(QUuid::WithoutBraces) + u'-' + name.left(dot);
    return folder + u'/' + fittedFileName(stem, dot < 0 ? QString() : name.sliced(dot));
}

bool hasChanged(const EditableAudioFile &file)
{
    const std::optional<QDateTime> now = contentModificationDate(file.url);
    if (!file.modificationDate || !now)
        return false;
    const std::chrono::milliseconds difference{file.modificationDate->msecsTo(*now)};
    return std::chrono::abs(difference) > dateTolerance;
}

} // namespace

RewriteTarget rewriteTarget(const EditableAudioFile &file)
{
    const QByteArray real = realPath(file.url);
    struct stat found = {};
    if (real.isEmpty() || ::stat(real.constData(), &found) != 0)
        throw AudioFileTagError::fileMissing(file.url);
    const QString original = textPath(fileURL(real.toStdString()));
    const QString folder = folderOf(original);
    if (!isWritable(original) || !isWritable(folder))
        throw AudioFileTagError::notWritable(file.url);
    if (!S_ISREG(found.st_mode) || hasChanged(file))
        throw AudioFileTagError::fileChangedOnDisk(file.url);
    return {.url = file.url,
            .original = original,
            .temporary = temporaryPath(folder, lastPathComponent(file.url)),
            .state = FileState::of(found)};
}

void checkUnchanged(const RewriteTarget &target)
{
    struct stat found = {};
    if (::stat(QFile::encodeName(target.original).constData(), &found) != 0)
        throw AudioFileTagError::fileMissing(target.url);
    if (FileState::of(found) != target.state)
        throw AudioFileTagError::fileChangedOnDisk(target.url);
}

} // namespace tonearm
