// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/FullToc.h"

#include "support/AudioDisc.h"

#include <algorithm>
#include <map>

namespace tonearm {

namespace {

constexpr qsizetype headerBytes = 4;
constexpr qsizetype entryBytes = 11;
constexpr int leadoutPoint = 0xA2;
// Set in the control field of a data track.
constexpr int dataFlag = 4;

int byteAt(const QByteArray &bytes, qsizetype index)
{
    return static_cast<unsigned char>(bytes[index]);
}

void addEntry(std::map<int, LayoutSession> &sessions, const QByteArray &entry)
{
    const int addressKind = byteAt(entry, 1) >> 4;
    const int control = byteAt(entry, 1) & 0xF;
    const int point = byteAt(entry, 3);
    // Kind 1 is a position; others carry catalogue numbers and what recorders need.
    if (addressKind != 1)
        return;
    const qint64 seconds = byteAt(entry, 8) * 60 + byteAt(entry, 9);
    const qint64 position = seconds * discFramesPerSecond + byteAt(entry, 10) - discPauseFrames;
    LayoutSession &session = sessions[byteAt(entry, 0)];
    session.number = byteAt(entry, 0);
    if (point == leadoutPoint)
        session.leadout = position;
    else if (point >= 1 && point <= 99)
        session.tracks.append({.number = point, .start = position, .isAudio = (control & dataFlag) == 0});
}

bool isSound(const LayoutSession &session)
{
    const auto &tracks = session.tracks;
    const auto misplaced = std::adjacent_find(
        tracks.begin(), tracks.end(), [](const LayoutTrack &left, const LayoutTrack &right) {
            return left.number == right.number || left.start >= right.start;
        });
    return !tracks.isEmpty() && misplaced == tracks.end() && session.leadout > tracks.constLast().start;
}

} // namespace

std::optional<DiscLayout> readFullToc(const QByteArray &reply)
{
    if (reply.size() < headerBytes)
        return std::nullopt;
    // The length doesn't count its own two bytes.
    const qsizetype length = byteAt(reply, 0) * 256 + byteAt(reply, 1) + 2;
    if (length > reply.size())
        return std::nullopt;
    std::map<int, LayoutSession> sessions;
    for (qsizetype at = headerBytes; at + entryBytes <= length; at += entryBytes)
        addEntry(sessions, reply.sliced(at, entryBytes));
    DiscLayout layout;
    for (auto &[number, session] : sessions) {
        std::sort(
            session.tracks.begin(), session.tracks.end(),
            [](const LayoutTrack &left, const LayoutTrack &right) { return left.number < right.number; });
        if (!isSound(session))
            return std::nullopt;
        layout.sessions.append(session);
    }
    return layout.sessions.isEmpty() ? std::nullopt : std::optional(layout);
}

} // namespace tonearm
