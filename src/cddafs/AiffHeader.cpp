// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/AiffHeader.h"

#include "cddafs/SectorSource.h"

#include <QtEndian>

namespace tonearm {

namespace {

constexpr qint64 chunkHeaderBytes = 8;
constexpr qint64 bytesPerFrame = 4;
// 44,100 as an 80-bit floating-point number.
constexpr char sampleRate[] = "\x40\x0E\xAC\x44\0\0\0\0\0\0";

void append16(QByteArray &bytes, quint16 value)
{
    value = qToBigEndian(value);
    bytes.append(reinterpret_cast<const char *>(&value), sizeof value);
}

void append32(QByteArray &bytes, qint64 value)
{
    const auto big = qToBigEndian(static_cast<quint32>(value));
    bytes.append(reinterpret_cast<const char *>(&big), sizeof big);
}

void appendFormat(QByteArray &bytes, qint64 sampleBytes)
{
    bytes += "COMM";
    append32(bytes, 18);
    append16(bytes, 2);
    append32(bytes, sampleBytes / bytesPerFrame);
    append16(bytes, 16);
    bytes.append(sampleRate, 10);
}

// A chunk for an application's own use, which every reader skips, brings the header to its size.
void appendPadding(QByteArray &bytes, qint64 behind)
{
    const qint64 size = discFrameBytes - behind - bytes.size() - chunkHeaderBytes;
    const QByteArray signature = "TnAm";
    bytes += "APPL";
    append32(bytes, size);
    bytes += signature + QByteArray(size - signature.size(), '\0');
}

} // namespace

QByteArray aiffHeader(qint64 sectors)
{
    // The sound's chunk begins with an offset and a block size, both unused.
    constexpr qint64 soundFieldBytes = 8;
    const qint64 sampleBytes = sectors * discFrameBytes;
    QByteArray bytes = "FORM";
    append32(bytes, discFrameBytes + sampleBytes - chunkHeaderBytes);
    bytes += "AIFF";
    appendFormat(bytes, sampleBytes);
    appendPadding(bytes, chunkHeaderBytes + soundFieldBytes);
    bytes += "SSND";
    append32(bytes, soundFieldBytes + sampleBytes);
    append32(bytes, 0);
    append32(bytes, 0);
    return bytes;
}

} // namespace tonearm
