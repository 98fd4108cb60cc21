// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/CdTextPacks.h"

#include <algorithm>
#include <initializer_list>

namespace tonearm::test {

namespace {

constexpr qsizetype payloadBytes = 12;
constexpr int titlePack = 0x80;
constexpr int sizePack = 0x8F;

QByteArray bytesOf(std::initializer_list<qsizetype> values)
{
    QByteArray bytes;
    for (const qsizetype value : values)
        bytes.append(static_cast<char>(value));
    return bytes;
}

// CRC-16 with the polynomial x^16 + x^12 + x^5 + 1, inverted.
QByteArray checksum(const QByteArray &bytes)
{
    unsigned crc = 0;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned>(static_cast<unsigned char>(byte)) << 8;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x8000U) != 0 ? (crc << 1) ^ 0x1021U : crc << 1;
    }
    crc = ~crc;
    return bytesOf({crc >> 8 & 0xFFU, crc & 0xFFU});
}

QByteArray pack(int type, int track, qsizetype sequence, qsizetype charactersBefore,
                const QByteArray &payload)
{
    const QByteArray bytes = bytesOf({type, track, sequence, std::min<qsizetype>(charactersBefore, 15)}) +
                             payload.leftJustified(payloadBytes, '\0');
    return bytes + checksum(bytes);
}

// The texts one after the other, each ended by zeros, cut into packs that know whose text they begin with.
QList<QByteArray> titlePacks(const QList<QByteArray> &titles, int firstNumber, qsizetype zeros)
{
    QByteArray text;
    QList<qsizetype> ends;
    for (const QByteArray &title : titles) {
        text += title + QByteArray(zeros, '\0');
        ends.append(text.size());
    }
    QList<QByteArray> packs;
    for (qsizetype at = 0; at < text.size(); at += payloadBytes) {
        const qsizetype index = std::upper_bound(ends.begin(), ends.end(), at) - ends.begin();
        const qsizetype begin = index == 0 ? 0 : ends[index - 1];
        const int track = index == 0 ? 0 : firstNumber + static_cast<int>(index) - 1;
        packs.append(pack(titlePack, track, packs.size(), (at - begin) / zeros, text.mid(at, payloadBytes)));
    }
    return packs;
}

} // namespace

QByteArray cdTextPacks(const QList<QByteArray> &titles, int firstNumber, CdTextCharset charset)
{
    constexpr qsizetype sizePacks = 3;
    constexpr char english = 0x09;
    QList<QByteArray> packs = titlePacks(titles, firstNumber, charset == CdTextCharset::shiftJis ? 2 : 1);
    QByteArray sizes(payloadBytes * sizePacks, '\0');
    sizes[0] = static_cast<char>(charset);
    sizes[1] = static_cast<char>(firstNumber);
    sizes[2] = static_cast<char>(firstNumber + titles.size() - 2);
    // The number of packs of each type, then the last sequence number and the language of each block.
    sizes[4] = static_cast<char>(packs.size());
    sizes[19] = sizePacks;
    sizes[20] = static_cast<char>(packs.size() + sizePacks - 1);
    sizes[28] = english;
    for (int part = 0; part < sizePacks; ++part)
        packs.append(pack(sizePack, part, packs.size(), 0, sizes.mid(part * payloadBytes, payloadBytes)));
    return packs.join();
}

} // namespace tonearm::test
