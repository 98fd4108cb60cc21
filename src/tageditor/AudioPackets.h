// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

namespace tonearm {

/// The packets of a file's sound, as far as one file's can be told from another's.
struct AudioPackets
{
    struct Stream
    {
        qsizetype count = 0;
        /// The size and a checksum of each packet, in order.
        QByteArray marks;

        bool operator==(const Stream &) const = default;
    };

    /// In the order of their numbers, which a rewrite may change.
    QList<Stream> streams;

    /// Reads what ffprobe prints for audioPacketArguments().
    static AudioPackets decoded(const QByteArray &listing);

    QList<qsizetype> counts() const;

    bool operator==(const AudioPackets &) const = default;
};

/// The arguments with which ffprobe lists a file's audio packets.
QStringList audioPacketArguments(const QString &path);

} // namespace tonearm
