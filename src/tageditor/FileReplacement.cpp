// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/FileReplacement.h"

#include "support/FileDescriptor.h"
#include "tageditor/FileAttributes.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace tonearm {

namespace {

constexpr mode_t privateMode = 0600;

[[noreturn]] void fail(const QString &path)
{
    throw std::system_error(errno, std::generic_category(), path.toStdString());
}

FileDescriptor opened(const QString &path)
{
    FileDescriptor file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.number() < 0)
        fail(path);
    return file;
}

AttributesDate attributesDate(const FileDescriptor &file, const QString &path)
{
    struct stat found = {};
    if (::fstat(file.number(), &found) != 0)
        fail(path);
    return std::chrono::seconds(found.st_ctim.tv_sec) + std::chrono::nanoseconds(found.st_ctim.tv_nsec);
}

// The new file is in place already, and some file systems can't do this for folders, so a failure tells
// nobody that the save has failed.
void makeRenameDurable(const QString &path)
{
    const QByteArray folder = QFile::encodeName(path.left(path.lastIndexOf(u'/') + 1));
    const FileDescriptor opened(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.number() >= 0)
        ::fsync(opened.number());
}

} // namespace

void createPrivateFile(const QString &path)
{
    const FileDescriptor file(
        ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, privateMode));
    if (file.number() < 0)
        fail(path);
}

AttributesDate carryAttributesOver(const RewriteTarget &target)
{
    const FileDescriptor copy = opened(target.temporary);
    const FileDescriptor original = opened(target.original);
    const AttributesDate date = attributesDate(original, target.original);
    copyAttributes(original.number(), copy.number());
    if (::fsync(copy.number()) != 0)
        fail(target.temporary);
    return date;
}

void replaceOriginal(const RewriteTarget &target, AttributesDate carriedOver)
{
    if (attributesDate(opened(target.original), target.original) != carriedOver)
        carryAttributesOver(target);
    // The last look, so that next to no time is left for a change.
    checkUnchanged(target);
    if (std::rename(QFile::encodeName(target.temporary).constData(),
                    QFile::encodeName(target.original).constData()) != 0)
        fail(target.original);
    makeRenameDurable(target.original);
}

} // namespace tonearm
