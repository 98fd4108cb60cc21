// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/TocPlist.h"

#include "support/AudioDisc.h"

#include <plist/plist.h>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace tonearm {

namespace {

void setNumber(plist_t dictionary, const char *key, qint64 value)
{
    plist_dict_set_item(dictionary, key, plist_new_uint(static_cast<std::uint64_t>(value)));
}

void setBlock(plist_t dictionary, const char *key, qint64 sector)
{
    setNumber(dictionary, key, std::max<qint64>(sector + discPauseFrames, 0));
}

plist_t trackEntry(const LayoutTrack &track, int session)
{
    const plist_t entry = plist_new_dict();
    setNumber(entry, "Session Number", session);
    setNumber(entry, "Point", track.number);
    setBlock(entry, "Start Block", track.start);
    plist_dict_set_item(entry, "Data", plist_new_bool(track.isAudio ? 0 : 1));
    return entry;
}

plist_t sessionEntry(const LayoutSession &session)
{
    const plist_t entry = plist_new_dict();
    setNumber(entry, "Session Number", session.number);
    if (!session.tracks.isEmpty()) {
        setNumber(entry, "First Track", session.tracks.constFirst().number);
        setNumber(entry, "Last Track", session.tracks.constLast().number);
    }
    setBlock(entry, "Leadout Block", session.leadout);
    const plist_t tracks = plist_new_array();
    for (const LayoutTrack &track : session.tracks)
        plist_array_append_item(tracks, trackEntry(track, session.number));
    plist_dict_set_item(entry, "Track Array", tracks);
    return entry;
}

} // namespace

QByteArray tocPlist(const DiscLayout &layout)
{
    const std::unique_ptr<void, void (*)(void *)> root(plist_new_dict(), plist_free);
    const plist_t sessions = plist_new_array();
    for (const LayoutSession &session : layout.sessions)
        plist_array_append_item(sessions, sessionEntry(session));
    plist_dict_set_item(root.get(), "Sessions", sessions);

    char *text = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(root.get(), &text, &length);
    const QByteArray result(text, static_cast<qsizetype>(length));
    plist_to_xml_free(text);
    return result;
}

} // namespace tonearm
