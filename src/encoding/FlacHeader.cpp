// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/FlacHeader.h"

#include <QFile>
#include <QtEndian>

namespace tonearm {

namespace {

// "fLaC", the head of the first block, and that block: the stream's facts.
constexpr qsizetype headerBytes = 4 + 4 + 34;
// The sample count is the last 36 bits of the eight bytes that end here.
constexpr qsizetype countEnd = 4 + 4 + 18;
constexpr quint64 countMask = (quint64(1) << 36) - 1;

} // namespace

std::optional<quint64> flacSampleCount(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray header = file.read(headerBytes);
    if (header.size() < headerBytes || !header.startsWith("fLaC"))
        return std::nullopt;
    return qFromBigEndian<quint64>(header.constData() + countEnd - sizeof(quint64)) & countMask;
}

} // namespace tonearm
