// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/JpegHeader.h"

#include "artwork/JpegMarkers.h"

#include <QByteArray>
#include <QList>
#include <QtEndian>

#include <algorithm>

namespace tonearm {

namespace {

bool isFrame(quint8 marker)
{
    constexpr quint8 huffmanTables = 0xC4;
    constexpr quint8 extension = 0xC8;
    constexpr quint8 arithmeticTables = 0xCC;
    return marker >= jpeg::firstFrame && marker <= jpeg::lastFrame && marker != huffmanTables &&
           marker != extension && marker != arithmeticTables;
}

// Of the frames' four orders, progressive is the third in each group of four.
bool isProgressive(quint8 frameMarker)
{
    return (frameMarker & 0x03) == 0x02;
}

bool standsAlone(quint8 marker)
{
    constexpr quint8 temporary = 0x01;
    return marker == temporary || (marker >= jpeg::firstRestart && marker <= jpeg::startOfImage);
}

// The next marker, past whatever lies before it, as decoders look for it; 0 at the end.
quint8 nextMarker(QIODevice &device)
{
    char byte = 0;
    bool isEscaped = false;
    while (device.getChar(&byte)) {
        const auto value = static_cast<quint8>(byte);
        if (isEscaped && value != jpeg::escape && value != 0)
            return value;
        isEscaped = value == jpeg::escape;
    }
    return 0;
}

// What follows a marker; empty if it is cut off.
QByteArray segment(QIODevice &device)
{
    constexpr qint64 lengthBytes = 2;
    const QByteArray length = device.read(lengthBytes);
    if (length.size() < lengthBytes)
        return {};
    const qint64 count = qFromBigEndian<quint16>(length.constData()) - lengthBytes;
    const QByteArray contents = count > 0 ? device.read(count) : QByteArray();
    return contents.size() == count ? contents : QByteArray();
}

quint8 byteAt(const QByteArray &bytes, qsizetype index)
{
    return index < bytes.size() ? static_cast<quint8>(bytes.at(index)) : 0;
}

// The frame's coefficients, two bytes each, in blocks of 8 by 8. A component has as many blocks in each
// direction as its sampling factor says, out of the largest of all factors.
qint64 coefficientBytes(const QByteArray &frame)
{
    constexpr qsizetype heightPlace = 1;
    constexpr qsizetype widthPlace = 3;
    constexpr qsizetype componentsPlace = 6;
    constexpr qsizetype componentBytes = 3;
    constexpr qint64 blockSide = 8;
    constexpr qint64 blockBytes = blockSide * blockSide * 2;
    if (frame.size() < componentsPlace)
        return 0;
    qint64 blocks = 0;
    qint64 across = 1;
    qint64 down = 1;
    for (qsizetype place = componentsPlace + 1; place < frame.size(); place += componentBytes) {
        const quint8 sampling = byteAt(frame, place);
        blocks += (sampling >> 4) * (sampling & 0x0F);
        across = std::max<qint64>(across, sampling >> 4);
        down = std::max<qint64>(down, sampling & 0x0F);
    }
    const qint64 width = qFromBigEndian<quint16>(frame.constData() + widthPlace);
    const qint64 height = qFromBigEndian<quint16>(frame.constData() + heightPlace);
    const auto parts = [](qint64 length, qint64 part) { return (length + part - 1) / part; };
    return parts(width, blockSide * across) * parts(height, blockSide * down) * blocks * blockBytes;
}

} // namespace

std::optional<qint64> jpegScanBytes(QIODevice &device)
{
    constexpr qsizetype componentCountPlace = 5;
    QByteArray frame;
    bool hasSeveralScans = false;
    device.seek(0);
    for (quint8 marker = nextMarker(device); marker != 0 && marker != jpeg::endOfImage;
         marker = nextMarker(device)) {
        if (standsAlone(marker))
            continue;
        const QByteArray contents = segment(device);
        if (marker == jpeg::startOfScan) {
            // A scan that leaves a component out has others after it.
            hasSeveralScans = hasSeveralScans || byteAt(contents, 0) < byteAt(frame, componentCountPlace);
            return hasSeveralScans ? coefficientBytes(frame) : 0;
        }
        if (isFrame(marker)) {
            frame = contents;
            hasSeveralScans = isProgressive(marker);
        }
    }
    return std::nullopt;
}

} // namespace tonearm
