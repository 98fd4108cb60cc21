// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/MountFolder.h"

#include "cddafs/CddafsError.h"
#include "support/FileName.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace tonearm {

namespace {

constexpr mode_t privateMode = 0700;
constexpr int maximumTries = 100;

void makeParent(const QByteArray &parent)
{
    std::error_code error;
    std::filesystem::create_directories(parent.toStdString(), error);
    if (error)
        throw CddafsError(parent.toStdString() + ": " + error.message());
}

// Left behind by one that was killed, if nothing is in it and nothing mounted on it.
bool isFree(const QByteArray &path, const QByteArray &parent)
{
    struct stat own = {};
    struct stat around = {};
    std::error_code error;
    return ::lstat(path.constData(), &own) == 0 && ::stat(parent.constData(), &around) == 0 &&
           S_ISDIR(own.st_mode) && own.st_dev == around.st_dev && own.st_uid == ::getuid() &&
           std::filesystem::is_empty(path.toStdString(), error) && !error;
}

QString numbered(const QString &name, int number)
{
    return number == 1 ? name : fittedFileName(name, u' ' + QString::number(number));
}

} // namespace

MountFolder::MountFolder(const QByteArray &parent, const QString &name)
{
    makeParent(parent);
    for (int number = 1; number <= maximumTries; ++number) {
        const QByteArray path = parent + '/' + numbered(name, number).toUtf8();
        const bool isMade = ::mkdir(path.constData(), privateMode) == 0;
        if (!isMade && errno != EEXIST)
            throw CddafsError(path.toStdString() + ": " + std::generic_category().message(errno));
        if (isMade || isFree(path, parent)) {
            m_path = path;
            return;
        }
    }
    throw CddafsError("No name is free in " + parent.toStdString() + '.');
}

MountFolder::~MountFolder()
{
    ::rmdir(m_path.constData());
}

} // namespace tonearm
