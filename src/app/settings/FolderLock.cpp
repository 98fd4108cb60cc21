// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/settings/FolderLock.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <thread>

namespace tonearm {

namespace {

bool isHeldByAnother(int descriptor)
{
    return ::flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

} // namespace

FolderLock::FolderLock(const QString &folder, std::chrono::milliseconds patience)
    : m_descriptor(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    constexpr std::chrono::milliseconds pause(1);
    const auto end = std::chrono::steady_clock::now() + patience;
    while (isHeldByAnother(m_descriptor.number())) {
        if (std::chrono::steady_clock::now() >= end) {
            m_isRefused = true;
            return;
        }
        std::this_thread::sleep_for(pause);
    }
}

} // namespace tonearm
