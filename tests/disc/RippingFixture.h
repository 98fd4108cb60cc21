// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/DiscError.h"
#include "disc/DiscRippingService.h"
#include "disc/FaultyFiles.h"
#include "disc/TrackCopy.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace tonearm::test {

/// Bytes that differ from frame to frame, the same each time.
inline QByteArray noise(qint64 size)
{
    QByteArray bytes(size, '\0');
    char *out = bytes.data();
    for (qint64 at = 0; at < size; ++at)
        out[at] = static_cast<char>((at * 7 + at / 251) & 0xFF);
    return bytes;
}

/// A folder with track files, a temporary directory, and files that can be made to fail.
class RippingFixture : public testing::Test
{
protected:
    /// Writes a track's file.
    DiscTrack trackOf(qint64 size, qint64 number = 3) const
    {
        const QString path = m_volume.filePath(QString::number(number) + u" Audio Track.aiff");
        writeFile(path, noise(size));
        return {.number = number, .audioFileURL = QUrl::fromLocalFile(path)};
    }

    /// Waits that take no time and are noted in the log.
    RipWaits noWaits() const
    {
        const std::weak_ptr<FaultyFiles> files = m_files;
        return {.sleep = [files](std::chrono::milliseconds time, std::stop_token) -> QCoro::Task<> {
            files.lock()->note(QStringLiteral("wait %1").arg(time.count()));
            co_return;
        }};
    }

    QString folder() const { return m_temporary.filePath(QStringLiteral("Tonearm/Rips")); }

    /// What lies in the folder for rips.
    QStringList rips() const { return namesIn(folder()); }

    QTemporaryDir m_volume;
    QTemporaryDir m_temporary;
    std::shared_ptr<FaultyFiles> m_files = std::make_shared<FaultyFiles>();
    std::stop_source m_stop;
};

/// The same for single copies, which run on the test's thread.
class CopyFixture : public RippingFixture
{
protected:
    QString destination() const { return m_temporary.filePath(QStringLiteral("copy.aiff")); }

    /// Copies a track; returns the checksum.
    QString copy(const DiscTrack &track, std::optional<qint64> limit = {},
                 TrackRipping::Progress onProgress = {})
    {
        Turn turn(m_turns);
        await(turn.take({}));
        const CopyOrder order = {
            .track = track, .destination = destination(), .limit = limit, .onProgress = onProgress};
        return await(copyTrack(order, m_files, noWaits(), m_workingSize, turn, m_stop.get_token()));
    }

    /// What a copy that fails ends with; nothing if it ends well.
    std::optional<DiscError> errorOfCopying(const DiscTrack &track, std::optional<qint64> limit = {})
    {
        return errorOf<DiscError>([&] { return copy(track, limit); });
    }

    bool hasDestination() const { return QFile::exists(destination()); }

    qint64 m_workingSize = 37632;
    Turns m_turns;
};

} // namespace tonearm::test
