// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/PictureEnding.h"

#include "artwork/JpegMarkers.h"
#include "artwork/PngFile.h"

#include <QtEndian>

#include <algorithm>

namespace tonearm {

namespace {

// Goes from marker to marker, because a segment may hold a thumbnail with an end of its own. Between the
// segments lies the compressed picture, in which an escape is never followed by another marker's byte.
bool hasJpegEnd(QByteArrayView bytes)
{
    constexpr qsizetype markerBytes = 2;
    constexpr qsizetype lengthBytes = 2;
    const auto isFollowedBySegment = [](quint8 marker) {
        return marker >= jpeg::firstFrame && (marker < jpeg::firstRestart || marker > jpeg::endOfImage);
    };
    qsizetype place = 0;
    while ((place = bytes.indexOf(static_cast<char>(jpeg::escape), place)) >= 0 && place + 1 < bytes.size()) {
        const auto marker = static_cast<quint8>(bytes[place + 1]);
        if (marker == jpeg::endOfImage)
            return true;
        if (marker == jpeg::escape) {
            ++place;
            continue;
        }
        place += markerBytes;
        if (!isFollowedBySegment(marker))
            continue;
        if (bytes.size() - place < lengthBytes)
            return false;
        place += std::max<qsizetype>(lengthBytes, qFromBigEndian<quint16>(bytes.data() + place));
    }
    return false;
}

// Goes from chunk to chunk: a length, a name, so many bytes and their checksum.
bool hasPngEnd(QByteArrayView bytes)
{
    constexpr qsizetype nameBytes = 4;
    constexpr qsizetype frameBytes = 12;
    qsizetype place = pngSignature.size();
    while (bytes.size() - place >= frameBytes) {
        const char *chunk = bytes.data() + place;
        if (bytes.sliced(place + nameBytes, nameBytes) == QByteArrayView("IEND"))
            return true;
        place += frameBytes + static_cast<qsizetype>(qFromBigEndian<quint32>(chunk));
    }
    return false;
}

} // namespace

bool lacksPictureEnd(QByteArrayView bytes)
{
    if (bytes.startsWith(jpegSignature))
        return !hasJpegEnd(bytes);
    if (bytes.startsWith(pngSignatureStart))
        return !hasPngEnd(bytes);
    return false;
}

} // namespace tonearm
