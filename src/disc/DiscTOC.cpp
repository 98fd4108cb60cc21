// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/DiscTOC.h"

#include "disc/DiscError.h"
#include "disc/PropertyList.h"
#include "support/Digest.h"

#include <QList>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 firstNumber = 1;
constexpr qint64 lastNumber = 99;

struct Track
{
    std::optional<qint64> point;
    std::optional<qint64> startBlock;
};

struct Session
{
    std::optional<qint64> number;
    std::optional<qint64> firstTrack;
    std::optional<qint64> lastTrack;
    std::optional<qint64> leadoutBlock;
    QList<Track> tracks;

    qint64 place() const { return number.value_or(std::numeric_limits<qint64>::max()); }
};

// What the table's file holds.
struct TOCPayload
{
    QList<Session> sessions;
};

Track readTrack(const PropertyListNode &node)
{
    return {.point = node.findInteger("Point"), .startBlock = node.findInteger("Start Block")};
}

Session readSession(const PropertyListNode &node)
{
    Session session = {.number = node.findInteger("Session Number"),
                       .firstTrack = node.findInteger("First Track"),
                       .lastTrack = node.findInteger("Last Track"),
                       .leadoutBlock = node.findInteger("Leadout Block"),
                       .tracks = {}};
    for (const PropertyListNode &track : node.findElements("Track Array"))
        session.tracks.append(readTrack(track));
    return session;
}

TOCPayload readPayload(const QByteArray &bytes)
{
    const PropertyList list(bytes);
    TOCPayload payload;
    for (const PropertyListNode &node : list.root().findElements("Sessions"))
        payload.sessions.append(readSession(node));
    return payload;
}

TOCPayload decodedPayload(const QByteArray &bytes)
{
    try {
        return readPayload(bytes);
    } catch (const PropertyListError &error) {
        throw DiscError::malformedTOC(error.description());
    }
}

std::map<qint64, qint64> startsOf(const Session &session)
{
    std::map<qint64, qint64> starts;
    for (const Track &track : session.tracks) {
        if (track.point && track.startBlock && *track.point >= firstNumber && *track.point <= lastNumber)
            starts[*track.point] = *track.startBlock;
    }
    return starts;
}

// As many digits as it takes, but at least so many; 32 bits are all that the scheme has room for.
QByteArray hexadecimal(qint64 value, int digits)
{
    return QByteArray::number(static_cast<quint32>(value), 16).rightJustified(digits, '0').toUpper();
}

} // namespace

DiscTOC DiscTOC::parse(const QByteArray &bytes)
{
    QList<Session> sessions = decodedPayload(bytes).sessions;
    std::stable_sort(sessions.begin(), sessions.end(),
                     [](const Session &left, const Session &right) { return left.place() < right.place(); });
    if (sessions.isEmpty())
        throw DiscError::malformedTOC(u"No sessions were listed."_s);

    const Session &audio = sessions.constFirst();
    const std::map<qint64, qint64> starts = startsOf(audio);
    if (starts.empty())
        throw DiscError::noAudioTracks();
    if (!audio.leadoutBlock)
        throw DiscError::malformedTOC(u"The session has no lead-out position."_s);
    return {.firstTrack = audio.firstTrack.value_or(starts.begin()->first),
            .lastTrack = audio.lastTrack.value_or(starts.rbegin()->first),
            .leadoutFrame = *audio.leadoutBlock,
            .trackStarts = starts,
            .sessionCount = sessions.size()};
}

QString DiscTOC::discID() const
{
    // The lead-out in front, then a slot for each possible track.
    std::array<qint64, lastNumber + 1> slots = {leadoutFrame};
    for (const auto &[number, start] : trackStarts) {
        if (number >= firstNumber && number <= lastNumber)
            slots[static_cast<size_t>(number)] = start;
    }
    QByteArray text = hexadecimal(firstTrack, 2) + hexadecimal(lastTrack, 2);
    for (const qint64 slot : slots)
        text += hexadecimal(slot, 8);
    const QByteArray encoded = digest(Digest::Algorithm::sha1, text).toBase64();
    return QString::fromLatin1(encoded).replace(u'+', u'.').replace(u'/', u'_').replace(u'=', u'-');
}

} // namespace tonearm
