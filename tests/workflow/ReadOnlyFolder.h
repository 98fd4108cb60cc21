// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/SmallDisk.h"

#include <QString>

#include <optional>

namespace tonearm::test {

/// Makes a folder that nobody may write to for the life of this object. Permissions do for a user; for
/// root, whom they don't stop, a read-only disk is mounted, where that is permitted: see `isReadOnly`.
class ReadOnlyFolder
{
public:
    explicit ReadOnlyFolder(QString path);
    ~ReadOnlyFolder();
    ReadOnlyFolder(const ReadOnlyFolder &) = delete;
    ReadOnlyFolder &operator=(const ReadOnlyFolder &) = delete;

    bool isReadOnly() const { return m_isReadOnly; }

private:
    QString m_path;
    std::optional<SmallDisk> m_disk;
    bool m_isReadOnly = false;
};

} // namespace tonearm::test
