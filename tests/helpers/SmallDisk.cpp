// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/SmallDisk.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <sched.h>
#include <sys/mount.h>

#include <utility>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

// Gives the program mounts of its own, so that none outlives it, however it ends. That has to happen
// before there is a second thread, which would keep the mounts of before.
const bool hasOwnMounts =
    ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;

bool mountDisk(const QString &folder, int kilobytes)
{
    const QByteArray options = u"size=%1k,mode=0755"_s.arg(kilobytes).toLatin1();
    return hasOwnMounts && QDir().mkpath(folder) &&
           ::mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", MS_NOSUID | MS_NODEV,
                   options.constData()) == 0;
}

} // namespace

SmallDisk::SmallDisk(QString folder, int kilobytes)
    : m_folder(std::move(folder))
    , m_isMounted(mountDisk(m_folder, kilobytes))
{
}

SmallDisk::~SmallDisk()
{
    if (m_isMounted)
        ::umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
}

void SmallDisk::makeReadOnly() const
{
    ASSERT_EQ(::mount("tmpfs", QFile::encodeName(m_folder).constData(), "tmpfs",
                      MS_REMOUNT | MS_RDONLY | MS_NOSUID | MS_NODEV, nullptr),
              0);
}

} // namespace tonearm::test
