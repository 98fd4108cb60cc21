// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/ReadOnlyFolder.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

#include <utility>

namespace tonearm::test {

namespace {

constexpr QFile::Permissions readable = QFile::ReadOwner | QFile::ExeOwner;
constexpr int diskKilobytes = 16;

} // namespace

ReadOnlyFolder::ReadOnlyFolder(QString path)
    : m_path(std::move(path))
{
    if (::geteuid() == 0) {
        m_disk.emplace(m_path, diskKilobytes);
        if (m_disk->isMounted())
            m_disk->makeReadOnly();
        m_isReadOnly = m_disk->isMounted();
    } else {
        m_isReadOnly = QDir().mkpath(m_path) && QFile::setPermissions(m_path, readable);
    }
}

ReadOnlyFolder::~ReadOnlyFolder()
{
    if (!m_disk)
        QFile::setPermissions(m_path, readable | QFile::WriteOwner);
}

} // namespace tonearm::test
