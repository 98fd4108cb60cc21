// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/ArtworkFolder.h"

#include "helpers/Contents.h"
#include "helpers/SmallDisk.h"

#include <gtest/gtest.h>

#include <QStorageInfo>
#include <QTemporaryDir>

#include <memory>

namespace tonearm::test {

/// The application's own pictures on a disk that has room for no more than the start of one. Needs the right
/// to mount, which a test has to ask for: `isMounted`.
class FullArtworkDisk
{
public:
    /// What there is room for.
    static constexpr qint64 roomBytes = 4096;

    FullArtworkDisk()
    {
        if (!isMounted())
            return;
        const qint64 available = QStorageInfo(m_base.path()).bytesAvailable();
        EXPECT_GT(available, roomBytes);
        writeFile(m_base.filePath(QStringLiteral("filler")), QByteArray(available - roomBytes, 'x'));
    }

    bool isMounted() const { return m_disk.isMounted(); }

    const std::shared_ptr<ArtworkFolder> &artwork() const { return m_artwork; }

    /// The names of the application's own pictures, hidden ones too.
    QStringList artworkNames() const { return namesIn(m_base.filePath(QStringLiteral("Tonearm/Artwork"))); }

private:
    QTemporaryDir m_base;
    SmallDisk m_disk{m_base.path(), 64};
    std::shared_ptr<ArtworkFolder> m_artwork = std::make_shared<ArtworkFolder>(m_base.path());
};

} // namespace tonearm::test
