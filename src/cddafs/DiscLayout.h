// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

namespace tonearm {

// Positions here are logical sectors: 0 is the first sector after the lead-in and its pause.

struct LayoutTrack
{
    int number = 0;
    qint64 start = 0;
    bool isAudio = true;

    bool operator==(const LayoutTrack &) const = default;
};

struct LayoutSession
{
    /// From 1.
    int number = 1;
    /// Where its lead-out begins.
    qint64 leadout = 0;
    /// In ascending order.
    QList<LayoutTrack> tracks;

    bool operator==(const LayoutSession &) const = default;
};

/// What a disc's table of contents says.
struct DiscLayout
{
    QList<LayoutSession> sessions;

    bool operator==(const DiscLayout &) const = default;
};

/// An audio track with its length.
struct AudioTrack
{
    int number = 0;
    qint64 start = 0;
    qint64 sectors = 0;

    bool operator==(const AudioTrack &) const = default;
};

/// The layout of a disc of which only one table of all tracks is known.
///
/// Data tracks behind the audio form a second session if there is room for what lies between two
/// sessions, as it is on enhanced CDs; the first one's lead-out then lies before that room.
DiscLayout layoutOfTable(const QList<LayoutTrack> &tracks, qint64 leadout);

/// The audio tracks of all sessions. A track ends where the next of its session starts, the last one at
/// the session's lead-out.
QList<AudioTrack> audioTracks(const DiscLayout &layout);

} // namespace tonearm
