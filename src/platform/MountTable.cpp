// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MountTable.h"

#include <QFile>
#include <QUrl>

#include <libmount.h>

#include <cerrno>
#include <memory>
#include <system_error>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

struct Release
{
    void operator()(libmnt_table *table) const { mnt_unref_table(table); }

    void operator()(libmnt_iter *position) const { mnt_free_iter(position); }
};

MountedVolume volumeOf(libmnt_fs *entry)
{
    QString type = QString::fromUtf8(mnt_fs_get_fstype(entry));
    if (type.startsWith("fuse."_L1))
        type.remove(0, "fuse."_L1.size());
    return {.url = QUrl::fromLocalFile(QFile::decodeName(mnt_fs_get_target(entry))),
            .type = type,
            .source = QFile::decodeName(mnt_fs_get_source(entry))};
}

} // namespace

MountTable::MountTable(QString path)
    : m_path(std::move(path))
{
}

QList<MountedVolume> MountTable::volumes() const
{
    errno = 0;
    const std::unique_ptr<libmnt_table, Release> entries(
        mnt_new_table_from_file(QFile::encodeName(m_path).constData()));
    const std::unique_ptr<libmnt_iter, Release> position(mnt_new_iter(MNT_ITER_FORWARD));
    if (!entries || !position)
        throw std::system_error(errno, std::generic_category());

    QList<MountedVolume> volumes;
    libmnt_fs *entry = nullptr;
    while (mnt_table_next_fs(entries.get(), position.get(), &entry) == 0) {
        const MountedVolume volume = volumeOf(entry);
        volumes.removeIf([&](const MountedVolume &below) { return below.url == volume.url; });
        volumes.append(volume);
    }
    return volumes;
}

} // namespace tonearm
