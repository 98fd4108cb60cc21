// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <map>

namespace tonearm {

/// The table of contents of a disc's audio session.
///
/// Positions are in frames of 1/75 second on the scale of the file they come from, which counts from the
/// start of the disc's lead-in; nothing is ever added to them or taken away.
struct DiscTOC
{
    qint64 firstTrack = 0;
    qint64 lastTrack = 0;
    /// Where the audio session's lead-out begins.
    qint64 leadoutFrame = 0;
    /// Where each track begins, by its number from 1 to 99.
    std::map<qint64, qint64> trackStarts = {};
    /// How many sessions the disc has, audio or not.
    qint64 sessionCount = 0;

    /// Reads a volume's .TOC.plist, XML or binary. Throws DiscError (malformedTOC, noAudioTracks).
    static DiscTOC parse(const QByteArray &bytes);

    /// The MusicBrainz disc ID, 28 characters.
    QString discID() const;

    bool operator==(const DiscTOC &) const = default;
};

} // namespace tonearm
