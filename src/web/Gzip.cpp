// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/Gzip.h"

#include <QScopeGuard>

#include <zlib.h>

#include <algorithm>
#include <new>

namespace tonearm {

namespace {

// The largest window, and 16 for "with the head and the checksum of a gzip file".
constexpr int windowBits = MAX_WBITS + 16;

constexpr qint64 pieceSize = 65'536;

Bytef *bytesOf(QByteArray &array)
{
    return reinterpret_cast<Bytef *>(array.data());
}

// Nothing at all, or zeros up to the end.
bool isPadding(const Bytef *bytes, uInt size)
{
    return std::all_of(bytes, bytes + size, [](Bytef byte) { return byte == 0; });
}

// Unpacks one piece more; returns zlib's state.
int unpackPiece(z_stream &stream, QByteArray &result, qint64 limit)
{
    const qint64 size = result.size();
    const qint64 room = std::min(pieceSize, limit + 1 - size);
    result.resize(size + room);
    stream.next_out = bytesOf(result) + size;
    stream.avail_out = static_cast<uInt>(room);
    const int state = inflate(&stream, Z_NO_FLUSH);
    result.truncate(size + room - stream.avail_out);
    return state;
}

} // namespace

std::optional<QByteArray> unpackedGzip(QByteArray packed, qint64 limit)
{
    z_stream stream = {};
    stream.next_in = bytesOf(packed);
    stream.avail_in = static_cast<uInt>(packed.size());
    if (inflateInit2(&stream, windowBits) != Z_OK)
        throw std::bad_alloc();
    const auto guard = qScopeGuard([&] { inflateEnd(&stream); });

    QByteArray result;
    int state = Z_OK;
    // A file that is cut off ends in Z_BUF_ERROR: there is nothing more to go on with.
    while (state == Z_OK && result.size() <= limit) {
        state = unpackPiece(stream, result, limit);
        // A gzip file has one member or more, each packed for itself, and nothing else but padding.
        if (state == Z_STREAM_END && !isPadding(stream.next_in, stream.avail_in))
            state = inflateReset(&stream);
    }
    if (state != Z_STREAM_END && result.size() <= limit)
        return std::nullopt;
    return result;
}

} // namespace tonearm
